#include <gtest/gtest.h>

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

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
  // What the windows remember goes to a scratch folder, never the user's configuration.
  const QTemporaryDir settings;
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
