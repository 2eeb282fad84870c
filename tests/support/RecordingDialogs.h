#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "model/Dialogs.h"

namespace pescavo {

// Records what the model shows and asks, and answers its questions from a script; with no
// answer left it answers no.
class RecordingDialogs : public Dialogs {
 public:
  void information(const std::string& text) override {
    messages.push_back(text);
    if (onMessage) onMessage();
  }
  bool askYesNo(const std::string& text) override {
    questions.push_back(text);
    if (answers.empty()) return false;
    const bool answer = answers.front();
    answers.pop_front();
    return answer;
  }

  std::vector<std::string> messages;
  std::vector<std::string> questions;
  std::deque<bool> answers;
  std::function<void()> onMessage;  // runs while the message is shown
};

}  // namespace pescavo
