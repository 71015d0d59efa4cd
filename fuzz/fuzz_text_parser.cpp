// Any bytes read as a whole text TYP: the parser must log and go on, never
// crash, loop without end or read outside a line. The same text is then
// applied once more under a single-object scope, which takes the reset and
// the other-kind paths.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "text/parser.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    mirvane::Document doc;
    mirvane::ParseTypText(doc, text);
    mirvane::ParseTypText(doc, text, mirvane::ObjectRef{mirvane::kObjectKinds[size % 3], 0});
    return 0;
}
