#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kovra {

/// Tag patterns in the form in which the platform's wild-card match takes them. A pattern that ends
/// in "+" stands for its stem alone or its stem and one digit: "NAME+" is kept as
/// "NAME,NAME[0-9]". Matching ignores case. Prepared once, since a drawing has many attributes.
using TagPatterns = std::vector<std::wstring>;

/// The wild-card pattern of one tag pattern.
std::wstring wildCardPattern(std::wstring_view tagPattern);

/// Longest tag list that is taken.
inline constexpr std::size_t kTagListLength = 255;

/// Splits a list at each "," after cutting it to kTagListLength. Blanks belong to a pattern; empty
/// pieces stay, but for an empty last one.
TagPatterns splitTagList(std::wstring_view list);

}  // namespace kovra
