// Reproducible random users, as scripts. A new dialog joins as a scene.
#pragma once
#include <string>
#include <vector>

namespace kovra::test {

struct NamedFile {
  std::string name;
  std::string bytes;
};

/// What a random user meets: the drawings a.dxf and b.dxf, and projects p ... that name them.
std::vector<NamedFile> randomFiles();
/// His lines, always the same for a seed from 1; successive seeds go through all that scenes hold.
std::string randomScript(unsigned seed);

}  // namespace kovra::test
