#pragma once

#include <string>

namespace pescavo {

// Every question and message to the user goes through here, so that tests and the
// command line can answer them. Messages carry the program's title "Pescavo".
class Dialogs {
 public:
  virtual ~Dialogs() = default;
  virtual void information(const std::string& text) = 0;  // information icon, OK
  virtual bool askYesNo(const std::string& text) = 0;     // true for Yes
};

}  // namespace pescavo
