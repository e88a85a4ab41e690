#include "hosts/desktop/driver_input.h"

#include <iostream>

#include "hosts/headless/line_reader.h"

namespace gexlo {

DriverInput::DriverInput(Driver& driver, std::function<void()> ended)
    : driver_(driver), ended_(std::move(ended)), reader_([this] {
          for (std::string line; readDriverLine(std::cin, line);) {
              // One after the other: an answer may depend on what the one before has done.
              QMetaObject::invokeMethod(
                  this, [this, line] { answer(line); }, Qt::BlockingQueuedConnection);
          }
          QMetaObject::invokeMethod(
              this, [this] { ended_(); }, Qt::QueuedConnection);
      }) {}

DriverInput::~DriverInput() {
    reader_.join();
}

void DriverInput::answer(const std::string& line) {
    std::cout << driver_.answer(line) << std::endl;
}

}  // namespace gexlo
