// Somebody who clicks and types anywhere.
#pragma once
#include <QObject>
#include <random>
#include <string>

class QWidget;

namespace kovra::test {

/// Random mouse, keys, wheel and sizes on whatever windows the program shows, as raw events. Also
/// answers boxes, menus and choices that wait in a loop of their own.
class RandomUser {
 public:
  explicit RandomUser(unsigned seed);

  /// Does one thing.
  void act();
  /// What was done last, for messages.
  const std::string& last() const { return last_; }

 private:
  void actInOwnLoops();
  QWidget* target();
  QWidget* widgetIn(QWidget& window);
  void useMouse(QWidget& widget);
  void useKeys(QWidget& window);
  void typeWords();
  void changeWindow(QWidget& window);
  bool chance(unsigned outOf) { return random_() % outOf == 0; }
  int below(int bound) {
    return bound > 0 ? static_cast<int>(random_() % static_cast<unsigned>(bound)) : 0;
  }

  std::mt19937 random_;
  QObject ownLoops_;
  int depth_ = 0;
  std::string last_;
};

}  // namespace kovra::test
