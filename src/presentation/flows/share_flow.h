// Sending the grid off as a picture.
#pragma once

namespace gexlo {

class ShareFlow {
public:
    virtual ~ShareFlow() = default;
    virtual void sendEmail() = 0;
    virtual void sendTwitter() = 0;
    virtual void sendFacebook() = 0;
    virtual void saveAlbum() = 0;
};

}  // namespace gexlo
