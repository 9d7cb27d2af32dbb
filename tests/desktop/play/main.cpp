// `kovra` with the lines of its scripts played as clicks and keys on native widgets. Where the
// variable KOVRA_PLAY_REPORT names a file, what was wrong with the widgets goes there, a line for
// each fault, then how often each act was done. Where KOVRA_PLAY_PICTURE names a PNG file, the
// dialog goes there as it looked when it was last at rest.
#include <QApplication>
#include <QDialog>
#include <QPixmap>
#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>

#include "host/program/options.h"
#include "host/subcommands/run_command.h"
#include "tests/desktop/hands/native_hands.h"

namespace {

using namespace kovra;

/// With the commonest of its colors alone, for a small file.
QImage withFewColors(const QImage& picture) {
  std::map<QRgb, int> counts;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x) ++counts[picture.pixel(x, y)];
  QList<QRgb> colors;
  for (const auto& [color, count] : counts) colors.append(color);
  std::stable_sort(colors.begin(), colors.end(),
                   [&counts](QRgb a, QRgb b) { return counts[a] > counts[b]; });
  constexpr qsizetype kMost = 256;
  return picture.convertToFormat(QImage::Format_Indexed8, colors.mid(0, kMost),
                                 Qt::ThresholdDither);
}

/// Draws the dialog on top into the file; does nothing while none is there.
void keepPicture(const QString& file) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    const bool shown = window->isVisible() && window->isEnabled();
    if (!shown || !window->objectName().startsWith(QLatin1String("template-"))) continue;
    constexpr int kSmallest = 0;  // the file, not the picture
    withFewColors(window->grab().toImage()).save(file, "PNG", kSmallest);
  }
}

/// Hands that say at the end what they met.
class ReportingHands : public test::NativeHands {
 public:
  using NativeHands::NativeHands;
  bool goOn() override {
    const bool done = NativeHands::goOn();
    if (!done && qEnvironmentVariableIsSet("KOVRA_PLAY_PICTURE"))
      keepPicture(qEnvironmentVariable("KOVRA_PLAY_PICTURE"));
    return done;
  }
  ~ReportingHands() override {
    const char* file = std::getenv("KOVRA_PLAY_REPORT");
    if (file == nullptr) return;
    std::ofstream report(file);
    for (const std::string& fault : faults()) report << "fault " << fault << '\n';
    for (const auto& [act, count] : counts()) report << act << ' ' << count << '\n';
  }
};

/// What Qt says is no output of the program.
void dropMessage(QtMsgType, const QMessageLogContext&, const QString&) {}

}  // namespace

int main(int argc, char** argv) {
  if (std::getenv("KOVRA_PLAY_QT") == nullptr) qInstallMessageHandler(dropMessage);
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  int argumentsOfQt = 1;
  const QApplication application(argumentsOfQt, argv);
  // Drawings are written with the same numbers everywhere; Qt has set the user's own by now.
  std::setlocale(LC_NUMERIC, "C");
  const host::CommandLine line = host::parseCommandLine(argc, argv);
  if (line.exitStatus) return *line.exitStatus;
  const int status = host::runDrawingsByHand(line.run, [&line] {
    win::Interaction::TextSink transcript;
    if (!line.run.quiet) transcript = [](std::string_view text) { std::cout << text; };
    return std::make_unique<ReportingHands>(transcript);
  });
  std::cout.flush();
  return status;
}
