#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace pescavo {

// Exit codes of the command-line runner.
// 4: the independent check itself could not run (GLPK gave no answer); 5: a report file
// could not be written (the old one is kept); 130: a screening stopped by Ctrl+C.
enum CliExit {
  kExitOk = 0,
  kExitRefused = 1,
  kExitBadInput = 2,
  kExitDiffers = 3,
  kExitUnchecked = 4,
  kExitReportFile = 5,
  kExitCancelled = 130
};

// pescavo-cli [--input DIR] [--decimal SEP] [--report-folder DIR] COMMAND [RUN OPTIONS]
// defaultDecimal is the locale's separator; the core never reads the locale itself.
int runCli(const std::vector<std::string>& args, char defaultDecimal, std::ostream& out,
           std::ostream& err);

}  // namespace pescavo
