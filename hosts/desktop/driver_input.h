// The driver's commands for the window: lines come in from standard input, answers go out.
#pragma once

#include <QObject>
#include <functional>
#include <string>
#include <thread>

#include "hosts/headless/driver.h"

namespace gexlo {

class DriverInput final : public QObject {
    Q_OBJECT

public:
    /// Calls `ended` when the input ends.
    DriverInput(Driver& driver, std::function<void()> ended);
    ~DriverInput() override;

private:
    void answer(const std::string& line);

    Driver& driver_;
    std::function<void()> ended_;
    std::thread reader_;
};

}  // namespace gexlo
