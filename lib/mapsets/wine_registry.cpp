#include "mapsets/wine_registry.h"

#include <algorithm>

#include "base/ascii.h"
#include "base/codepage.h"
#include "base/file_io.h"
#include "lang/lookup.h"

namespace mirvane {

namespace {

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// UTF-16 units of \x escapes as UTF-8, pairing surrogates.
class Utf16Units {
public:
    explicit Utf16Units(std::string& out) : out_(out) {}
    ~Utf16Units() { Flush(); }
    void Add(char32_t unit) {
        if (high_ && unit >= 0xDC00 && unit <= 0xDFFF) {
            AppendUtf8(out_, 0x10000 + ((high_ - 0xD800) << 10) + (unit - 0xDC00));
            high_ = 0;
            return;
        }
        Flush();
        if (unit >= 0xD800 && unit <= 0xDBFF) high_ = unit;
        else AppendUtf8(out_, unit >= 0xDC00 && unit <= 0xDFFF ? 0xFFFD : unit);
    }
    void Flush() {
        if (high_) AppendUtf8(out_, 0xFFFD);
        high_ = 0;
    }

private:
    std::string& out_;
    char32_t high_ = 0;
};

char LetterEscape(char letter) {
    switch (letter) {
        case 'a': return '\a';
        case 'b': return '\b';
        case 't': return '\t';
        case 'n': return '\n';
        case 'v': return '\v';
        case 'f': return '\f';
        case 'r': return '\r';
        case 'e': return '\x1b';
        default: return letter;  // a backslash, a quote, a bracket
    }
}

// The text from `pos` up to the first `end` that no backslash escapes; `pos`
// is left after it. Wine writes characters beyond ASCII as \x and up to four
// hex digits of a UTF-16 unit, control characters as C or octal escapes.
std::string Unescape(std::string_view line, std::size_t& pos, char end) {
    std::string out;
    Utf16Units units(out);
    while (pos < line.size() && line[pos] != end) {
        const char c = line[pos++];
        if (c != '\\' || pos >= line.size()) {
            units.Flush();
            out += c;
            continue;
        }
        const char escape = line[pos++];
        if (escape == 'x' && pos < line.size() && HexDigit(line[pos]) >= 0) {
            char32_t unit = 0;
            for (int digits = 0; digits < 4 && pos < line.size() && HexDigit(line[pos]) >= 0; ++digits)
                unit = unit * 16 + static_cast<char32_t>(HexDigit(line[pos++]));
            units.Add(unit);
            continue;
        }
        units.Flush();
        if (escape >= '0' && escape <= '7') {
            int code = escape - '0';
            for (int digits = 1; digits < 3 && pos < line.size() && line[pos] >= '0' && line[pos] <= '7'; ++digits)
                code = code * 8 + (line[pos++] - '0');
            out += static_cast<char>(code);
            continue;
        }
        out += LetterEscape(escape);
    }
    units.Flush();
    if (pos < line.size()) ++pos;
    return out;
}

// "e8,03,00" -> its bytes.
Bytes HexBytes(std::string_view text) {
    Bytes bytes;
    int high = -1;
    for (char c : text) {
        const int digit = HexDigit(c);
        if (digit < 0) {
            high = -1;
            continue;
        }
        if (high < 0) {
            high = digit;
            continue;
        }
        bytes.push_back(static_cast<std::uint8_t>(high * 16 + digit));
        high = -1;
    }
    return bytes;
}

std::string_view TrimLeft(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    return text;
}

std::string_view TrimRight(std::string_view text) {
    while (!text.empty() && (text.back() == '\r' || text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
    return text;
}

bool SameName(std::string_view a, std::string_view b) { return AsciiLower(a) == AsciiLower(b); }

// True when `key` is `parent` or lies below it.
bool IsAtOrBelow(std::string_view lowerKey, std::string_view lowerParent) {
    return lowerKey.starts_with(lowerParent) &&
           (lowerKey.size() == lowerParent.size() || lowerKey[lowerParent.size()] == '\\');
}

}  // namespace

WineRegistry::WineRegistry(std::string_view text) { Parse(text); }

WineRegistry WineRegistry::FromFile(const std::filesystem::path& systemReg) {
    std::string text;
    if (!ReadWholeFile(systemReg, text)) text.clear();
    return WineRegistry(text);
}

void WineRegistry::Parse(std::string_view text) {
    Key* current = nullptr;
    std::size_t next = 0;
    while (next < text.size()) {
        std::size_t end = text.find('\n', next);
        if (end == std::string_view::npos) end = text.size();
        std::string line(TrimRight(text.substr(next, end - next)));
        next = end + 1;
        if (line.starts_with("#arch=")) win64_ = line == "#arch=win64";
        if (line.starts_with("[")) {
            std::size_t pos = 1;
            keys_.push_back({Unescape(line, pos, ']'), {}});
            current = &keys_.back();
            continue;
        }
        if (!current || line.empty() || (line[0] != '"' && line[0] != '@')) continue;

        Value value;
        std::size_t pos = 1;
        if (line[0] == '"') value.Name = Unescape(line, pos, '"');
        if (pos >= line.size() || line[pos] != '=') continue;
        std::string_view data = std::string_view(line).substr(pos + 1);
        if (data.starts_with("str(")) data.remove_prefix(std::min(data.size(), data.find(':') + 1));
        if (data.starts_with("\"")) {
            std::size_t at = 1;
            value.IsText = true;
            value.Text = Unescape(data, at, '"');
        } else if (data.starts_with("dword:")) {
            const Bytes digits = HexBytes(data.substr(6));
            value.Data.assign(digits.rbegin(), digits.rend());
        } else if (data.starts_with("hex")) {
            // Long hex values go on over lines that end with a backslash.
            std::string joined(data);
            while (!joined.empty() && joined.back() == '\\' && next < text.size()) {
                joined.pop_back();
                end = text.find('\n', next);
                if (end == std::string_view::npos) end = text.size();
                joined += TrimLeft(TrimRight(text.substr(next, end - next)));
                next = end + 1;
            }
            value.Data = HexBytes(std::string_view(joined).substr(joined.find(':') + 1));
        } else {
            continue;
        }
        current->Values.push_back(std::move(value));
    }
}

std::string WineRegistry::ViewOf(const std::string& key) const {
    static constexpr std::string_view kSoftware = "software\\";
    const std::string lower = AsciiLower(key);
    if (!win64_ || !lower.starts_with(kSoftware) || lower.starts_with("software\\wow6432node")) return key;
    const std::string redirected = "Software\\Wow6432Node\\" + key.substr(kSoftware.size());
    const std::string lowerRedirected = AsciiLower(redirected);
    for (const Key& candidate : keys_)
        if (IsAtOrBelow(AsciiLower(candidate.Name), lowerRedirected)) return redirected;
    return key;
}

std::size_t WineRegistry::IndexOf(const std::string& key) const {
    const std::string view = ViewOf(key);
    for (std::size_t i = 0; i < keys_.size(); ++i)
        if (SameName(keys_[i].Name, view)) return i;
    return keys_.size();
}

const WineRegistry::Key* WineRegistry::Find(const std::string& key) const {
    const std::size_t index = IndexOf(key);
    return index < keys_.size() ? &keys_[index] : nullptr;
}

WineRegistry::Key& WineRegistry::FindOrAdd(const std::string& key) {
    const std::size_t index = IndexOf(key);
    if (index < keys_.size()) return keys_[index];
    keys_.push_back({ViewOf(key), {}});
    return keys_.back();
}

const WineRegistry::Value* WineRegistry::FindValue(const std::string& key, const std::string& name) const {
    const Key* found = Find(key);
    if (!found) return nullptr;
    for (const Value& value : found->Values)
        if (SameName(value.Name, name)) return &value;
    return nullptr;
}

std::vector<std::string> WineRegistry::SubKeys(const std::string& key) const {
    const std::string parent = AsciiLower(ViewOf(key)) + "\\";
    std::vector<std::string> names;
    for (const Key& candidate : keys_) {
        if (!AsciiLower(candidate.Name).starts_with(parent)) continue;
        // Wine writes only the keys that hold values, so a subkey may show
        // only through a key further down.
        const std::string rest = candidate.Name.substr(parent.size());
        const std::string name = rest.substr(0, rest.find('\\'));
        const bool known = std::any_of(names.begin(), names.end(), [&](const auto& n) { return SameName(n, name); });
        if (!name.empty() && !known) names.push_back(name);
    }
    return names;
}

std::optional<std::string> WineRegistry::Text(const std::string& key, const std::string& name) const {
    const Value* value = FindValue(key, name);
    if (!value || !value->IsText) return std::nullopt;
    return value->Text;
}

std::optional<std::uint32_t> WineRegistry::Number(const std::string& key, const std::string& name) const {
    const Value* value = FindValue(key, name);
    if (!value || value->IsText || value->Data.empty()) return std::nullopt;
    std::uint32_t number = 0;
    for (std::size_t i = std::min<std::size_t>(value->Data.size(), 4); i-- > 0;) number = number << 8 | value->Data[i];
    return number;
}

void WineRegistry::Remember(const std::string& key, const std::string& name, const std::string& text) {
    Forget(key, name);
    FindOrAdd(key).Values.push_back({name, true, text, {}});
}

void WineRegistry::Forget(const std::string& key, const std::string& name) {
    Key& found = FindOrAdd(key);
    std::erase_if(found.Values, [&](const Value& value) { return SameName(value.Name, name); });
}

WineRegistryWriter::WineRegistryWriter(WineRegistry& registry, ProgramRunner runner)
    : registry_(registry), runner_(std::move(runner)) {}

RegistryFailure WineRegistryWriter::Run(std::vector<std::string> arguments) {
    if (!runner_)
        return LookupText("Mapsets",
                          "Il faut Wine pour modifier le registre du préfixe Wine : installez Wine (la commande wine) "
                          "puis recommencez.",
                          "msgWineAbsent");
    // 32-bit programs, Garmin's among them, see SOFTWARE of a 64-bit prefix under Wow6432Node.
    if (registry_.Is64Bit()) arguments.push_back("/reg:32");
    const int status = runner_(arguments);
    if (status == 0) return std::nullopt;
    return LookupText("Mapsets", "Wine n'a pas pu modifier le registre. Code de retour :", "msgWineEchec") + " " +
           std::to_string(status);
}

RegistryFailure WineRegistryWriter::SetText(const std::string& key, const std::string& name,
                                            const std::string& value) {
    RegistryFailure failure = Run({"wine", "reg", "add", "HKLM\\" + key, "/v", name, "/t", "REG_SZ", "/d", value, "/f"});
    if (!failure) registry_.Remember(key, name, value);
    return failure;
}

RegistryFailure WineRegistryWriter::DeleteValue(const std::string& key, const std::string& name) {
    RegistryFailure failure = Run({"wine", "reg", "delete", "HKLM\\" + key, "/v", name, "/f"});
    if (!failure) registry_.Forget(key, name);
    return failure;
}

}  // namespace mirvane
