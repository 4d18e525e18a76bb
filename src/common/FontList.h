#pragma once

#include "common/TextList.h"

#include <functional>
#include <string>

namespace vellumar {

// Called once per installed font family; return false to stop the enumeration.
using FontFamilyCallback = std::function<bool(const std::string& family)>;

// Hands every installed font family to `callback`, in the order the system lists them. The
// system may list a family once per character set; each family is handed over only once.
// The families come from the window side (the toolkit knows the installed fonts), so core
// stays free of it.
void EnumerateFonts(const TextList& installedFamilies, const FontFamilyCallback& callback);

} // namespace vellumar
