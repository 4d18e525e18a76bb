#include "common/Pict.h"

#include "common/TextCompare.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vellumar {

bool IsShowablePicture(std::string_view path)
{
    if (path.size() < 4)
        return false;
    const std::string ending = ToLowerAscii(path.substr(path.size() - 4));
    static constexpr std::array<std::string_view, 4> kEndings = {".bmp", ".gif", ".jpg", "jpeg"};
    return std::find(kEndings.begin(), kEndings.end(), ending) != kEndings.end();
}

PictureRect FitPicture(int pictureWidth, int pictureHeight, int areaWidth, int areaHeight,
                       bool stretch)
{
    if (pictureWidth <= 0 || pictureHeight <= 0 || areaWidth <= 0 || areaHeight <= 0)
        return {};
    const double scaleToFit = std::min(static_cast<double>(areaWidth) / pictureWidth,
                                       static_cast<double>(areaHeight) / pictureHeight);
    const double scale = stretch ? scaleToFit : std::min(1.0, scaleToFit);
    PictureRect rect;
    // Rounding each side on its own can push one pixel past the area.
    rect.width = std::clamp(static_cast<int>(std::lround(pictureWidth * scale)), 1, areaWidth);
    rect.height = std::clamp(static_cast<int>(std::lround(pictureHeight * scale)), 1, areaHeight);
    rect.x = (areaWidth - rect.width) / 2;
    rect.y = (areaHeight - rect.height) / 2;
    return rect;
}

} // namespace vellumar
