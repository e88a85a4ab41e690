// The way into the community.
#pragma once

namespace gexlo {

class CommunityFlow {
public:
    virtual ~CommunityFlow() = default;
    virtual void openTessaly() = 0;
};

}  // namespace gexlo
