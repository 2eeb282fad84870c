#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <iostream>
#include <ostream>

#include "cli/Cli.h"
#include "cli/CliCommands.h"
#include "model/MainWindowModel.h"
#include "model/Screening.h"

namespace pescavo {

namespace {

// Set by Ctrl+C; lock-free, so the signal handler may store to it.
std::atomic<bool> g_interrupted{false};
static_assert(std::atomic<bool>::is_always_lock_free);

void onInterrupt(int) { g_interrupted.store(true); }

// Ctrl+C cancels the screening rather than the process while this lives.
class InterruptCatcher {
 public:
  InterruptCatcher() {
    g_interrupted.store(false);
    struct sigaction action {};
    action.sa_handler = onInterrupt;
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, &m_previous);
  }
  ~InterruptCatcher() { sigaction(SIGINT, &m_previous, nullptr); }
  InterruptCatcher(const InterruptCatcher&) = delete;
  InterruptCatcher& operator=(const InterruptCatcher&) = delete;

 private:
  struct sigaction m_previous {};
};

// A bar redrawn in place, at most ten times a second, and wiped when the screening ends.
class ProgressBar {
 public:
  explicit ProgressBar(std::ostream& err) : m_err(err) {}
  ~ProgressBar() {
    if (m_drawn) m_err << "\r" << std::string(kWidth + 24, ' ') << "\r" << std::flush;
  }
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  void show(int done, int total) {
    const auto now = std::chrono::steady_clock::now();
    if (m_drawn && done < total && now - m_last < std::chrono::milliseconds(100)) return;
    m_last = now;
    m_drawn = true;
    const int filled =
        total > 0 ? static_cast<int>(static_cast<long long>(kWidth) * done / total) : kWidth;
    m_err << "\r[" << std::string(filled, '#') << std::string(kWidth - filled, '.') << "] " << done
          << '/' << total << std::flush;
  }

 private:
  static constexpr int kWidth = 40;
  std::ostream& m_err;
  std::chrono::steady_clock::time_point m_last;
  bool m_drawn = false;
};

ScreeningRequest requestOf(const CliOptions& options) {
  ScreeningRequest request;
  if (options.bothSpecies)
    request.species = {static_cast<int>(Species::CommonCarp),
                       static_cast<int>(Species::RainbowTrout)};
  else
    request.species = {
        static_cast<int>(options.carp ? Species::CommonCarp : Species::RainbowTrout)};
  request.criteria = {options.minimum ? Criterion::Minimum : Criterion::Maximum};
  request.scenarios = options.scenarios;
  request.base.pseudo = {options.pc, options.cc, options.f};
  request.base.mrbd = options.mrbd;
  if (options.fishmeal >= 0) request.base.fishmealGrade = options.fishmeal;
  return request;
}

int exitStatus(const ScreeningResult& result) {
  if (result.cancelled) return kExitCancelled;
  CheckTally tally;
  for (const ScreeningRow& row : result.rows)
    if (row.checked) tally.add(row.verdict);
  return tally.exitStatus();
}

}  // namespace

int runScreen(MainWindowModel& model, const CliOptions& options, std::ostream& out,
              std::ostream& err) {
  const ScreeningRequest request = requestOf(options);
  const Screening screening(model.database().table(), model.runInput().species,
                            model.runInput().fishmeal, model.decimalSeparator());
  // Only a person at a terminal wants the bar; a pipe or a log gets the rows alone.
  const bool bar = &err == &std::cerr && isatty(STDERR_FILENO);
  ScreeningResult result;
  {
    const InterruptCatcher catcher;
    // Said once Ctrl+C is caught, so that whoever waits for it may interrupt from then on.
    err << "Screening " << model.database().table().substanceCount()
        << " substances: " << screening.runCount(request) << " runs\n"
        << std::flush;
    ProgressBar progressBar(err);
    result = screening.run(
        request,
        [&](int done, int total) {
          if (bar) progressBar.show(done, total);
        },
        g_interrupted);
  }

  const ScreeningFormat format =
      options.format == "csv" ? ScreeningFormat::Csv : ScreeningFormat::Tsv;
  out << screeningHeaderLine(request.scenarios, format);
  for (const ScreeningRow& row : result.rows)
    out << screeningLine(row, request.scenarios, model.runInput().species, format);
  out << std::flush;
  if (result.cancelled)
    err << "Stopped after " << result.rows.size() << " of " << result.total << " runs.\n";
  return exitStatus(result);
}

}  // namespace pescavo
