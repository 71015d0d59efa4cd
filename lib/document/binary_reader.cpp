#include "document/binary_reader.h"
namespace mirvane {
void ReadBinaryTyp(Document& doc, const Bytes&, const std::string&) { doc.Reset(); }
bool OpenBinaryTyp(Document&, const std::string&) { return false; }
bool ReadWholeFile(const std::string&, Bytes&) { return false; }
}
