// Any bytes as a profile file, any names: reading never fails, and an accepted edit reads back.

#include "config/ProfileText.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    // The first bytes choose the names, the value and the buffer size; the rest is the file.
    const std::size_t split1 = input.find('\x01');
    const std::size_t split2 = input.find('\x01', split1 == input.npos ? input.npos : split1 + 1);
    if (split1 == input.npos || split2 == input.npos || split2 - split1 < 2)
        return 0;
    const std::string_view section = input.substr(0, split1);
    const std::string_view key = input.substr(split1 + 1, split2 - split1 - 2);
    const std::size_t bufferSize = static_cast<unsigned char>(input[split2 - 1]) * 17u;
    const std::string_view contents = input.substr(split2 + 1);

    (void)vellumar::ProfileText::Read(contents, section, key, "Error", bufferSize);
    (void)vellumar::ProfileText::Read(contents, section, std::nullopt, "Error", bufferSize);
    (void)vellumar::ProfileText::Read(contents, std::nullopt, std::nullopt, "Error", bufferSize);

    const std::string value = "v" + std::to_string(size);
    if (const auto edited = vellumar::ProfileText::Edit(contents, section, key, value)) {
        const std::string back = vellumar::ProfileText::Read(*edited, section, key, "Error", 4096);
        // Names with quotes or "]" may find an earlier section or key of the same name first;
        // everything else must read back as written.
        if (back != value && section.find_first_of("[]\"';") == std::string_view::npos &&
            key.find_first_of("[]\"';") == std::string_view::npos &&
            contents.find('\0') == std::string_view::npos)
            std::abort();
    }
    (void)vellumar::ProfileText::Edit(contents, section, key, std::nullopt);
    return 0;
}
