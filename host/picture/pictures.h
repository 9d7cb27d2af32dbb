#pragma once

#include "launch/picture_library.h"

namespace kovra::host {

using launch::PictureForm;
using launch::PictureGaps;
using launch::PictureOptions;

// The functions of PictureLibrary.
Result<PictureGaps> plotPicture(const std::filesystem::path& drawing, const PictureOptions& options,
                                const std::filesystem::path& picture, PictureForm form);
Result<void> pictureScreen(const std::filesystem::path& file, PictureForm form);
Result<void> pictureDialog(const std::filesystem::path& file, PictureForm form);

}  // namespace kovra::host
