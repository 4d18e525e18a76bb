#pragma once

#include <string_view>

namespace vellumar {

// The commented default configuration, resources/cloud.ini, as it was when the program was
// built: the one place where every key of cloud.ini is documented.
std::string_view DefaultCloudIni();

} // namespace vellumar
