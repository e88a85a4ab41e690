// The bubble that tells the hours of a period.
#pragma once

#include <string>

namespace gexlo {

class ClassHourFlow {
public:
    virtual ~ClassHourFlow() = default;
    virtual void showClassHour_periodName(const std::string& classHour,
                                          const std::string& periodName) = 0;
    /// Not before the bubble has stood for a while.
    virtual void hideClassHour() = 0;
};

}  // namespace gexlo
