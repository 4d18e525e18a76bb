#pragma once

#include "sound/CdDrive.h"

#include <memory>
#include <string>

namespace vellumar {

// A CD drive through libcdio: a device (/dev/sr0), or a disc image (a CUE sheet with its .bin
// of the same name, or a cdrdao TOC file) that stands in for a drive with a disc in it. An
// image that does not exist is a drive with no disc; written later, it is a disc put in.
std::unique_ptr<CdDrive> CreateCdioDrive(const std::string& path);

// The drive the CD player uses: $VELLUMAR_CD when set (a device or an image), else the system's
// first CD drive; nullptr when there is neither.
std::unique_ptr<CdDrive> FindCdDrive();

} // namespace vellumar
