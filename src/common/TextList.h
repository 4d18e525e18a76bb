#pragma once

#include <string>
#include <vector>

namespace vellumar {

// An ordered list of texts owned by the caller. Listers append to it and never clear it, so a
// caller that wants a fresh list passes an empty one.
using TextList = std::vector<std::string>;

} // namespace vellumar
