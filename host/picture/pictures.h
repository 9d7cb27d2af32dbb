#pragma once

#include "host/libraries/picture_library.h"

namespace kovra::host {

// The functions of PictureLibrary.
Result<PictureGaps> plotPicture(const std::filesystem::path& drawing, const PlotOptions& options,
                                const std::filesystem::path& picture, PictureForm form);
Result<void> pictureScreen(const std::filesystem::path& file, PictureForm form);
Result<void> pictureDialog(const std::filesystem::path& file, PictureForm form);

}  // namespace kovra::host
