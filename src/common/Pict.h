#pragma once

#include <string_view>

namespace vellumar {

// The rules of the picture display, ShowPicture: which files it loads and where a picture
// goes inside the image control.

// True for the files ShowPicture loads: the last four characters of the path, lower-cased,
// are ".bmp", ".gif", ".jpg" or "jpeg".
bool IsShowablePicture(std::string_view path);

struct PictureRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

// Where a picture of `pictureWidth` x `pictureHeight` lies inside an area, centred and never
// distorted. With `stretch` it fills the area as far as its proportions allow; without, it
// keeps its own size and only shrinks when it would not fit.
PictureRect FitPicture(int pictureWidth, int pictureHeight, int areaWidth, int areaHeight,
                       bool stretch);

} // namespace vellumar
