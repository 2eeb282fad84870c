#include "ScriptedDialogs.h"

#include <gtest/gtest.h>

#include <QPrinter>

namespace pescavo {

bool ScriptedDialogs::askYesNo(const std::string& text) {
  questions.push_back(text);
  if (answers.empty()) {
    ADD_FAILURE() << "unexpected question: " << text;
    return false;
  }
  const bool answer = answers.front();
  answers.pop_front();
  return answer;
}

bool ScriptedDialogs::choosePrinter(QPrinter& printer) {
  ++printDialogs;
  if (printPdf.empty()) return false;
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(QString::fromStdString(printPdf));
  return true;
}

std::string ScriptedDialogs::saveFileName(const std::string& proposed, const std::string&) {
  proposedNames.push_back(proposed);
  if (saveNames.empty()) return {};
  std::string name = saveNames.front();
  saveNames.pop_front();
  return name;
}

}  // namespace pescavo
