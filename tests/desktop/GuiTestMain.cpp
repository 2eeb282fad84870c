#include <gtest/gtest.h>

#include <QApplication>

namespace {

QtMessageHandler standardHandler = nullptr;

// The off-screen platform says what it cannot do (raise a window, size hints) on every window;
// that is not a finding of the test.
void quietPlatform(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (message.startsWith("This plugin does not support")) return;
  if (message.startsWith("QStandardPaths: XDG_RUNTIME_DIR")) return;
  standardHandler(type, context, message);
}

}  // namespace

// The windows are driven off screen, on any machine, display or not.
int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  standardHandler = qInstallMessageHandler(quietPlatform);
  QApplication application(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
