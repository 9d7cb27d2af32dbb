// A run of a random user, with what is watched meanwhile.
#pragma once
#include <filesystem>
#include <vector>

namespace kovra::desktop {
class MainWindow;
}

namespace kovra::test {

struct RandomOptions {
  unsigned seed = 1;
  double minutes = 0;  ///< 0: as many steps as said
  long steps = 0;
  std::vector<std::filesystem::path> drawings;
};

/// Lets a random user at the window until the time is over; then closes the drawings. After each
/// step everything comes to rest and all widgets are compared with their windows; after each round
/// of steps the drawings are opened anew and memory is measured. False when a widget differed or
/// memory grew from round to round. A step that takes a minute ends the program.
bool runRandomUser(const RandomOptions& options, desktop::MainWindow& window);

}  // namespace kovra::test
