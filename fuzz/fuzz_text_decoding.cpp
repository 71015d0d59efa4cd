// Language files and code page conversions on arbitrary bytes: no crash, and
// bytes -> UTF-8 -> bytes gives the same bytes for every code page.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "base/codepage.h"
#include "lang/ini_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);

    const mirvane::IniFile ini(mirvane::TextFileToUtf8(bytes));
    (void)ini.Value("Main", "cmdOK", "OK");

    const int codePage = 1250 + (size % 9);
    bool lossless = false;
    if (mirvane::EncodeCodePage(mirvane::DecodeCodePage(bytes, codePage), codePage, &lossless) != bytes || !lossless)
        std::abort();
    (void)mirvane::EncodeCodePage(bytes, codePage, &lossless);
    return 0;
}
