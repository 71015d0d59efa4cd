// HKEY_LOCAL_MACHINE of Windows, in the 32-bit view that MapSource and
// BaseCamp, both 32-bit programs, read and write.
#ifdef _WIN32

#include <windows.h>

#include <algorithm>

#include "base/file_io.h"
#include "lang/lookup.h"
#include "mapsets/mapset_environment.h"

namespace mirvane {

namespace {

std::wstring Wide(const std::string& utf8) {
    const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), wide.data(), length);
    return wide;
}

std::string Utf8(const std::wstring& wide) {
    const int length =
        WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), utf8.data(), length, nullptr, nullptr);
    return utf8;
}

class OpenKey {
public:
    OpenKey(const std::string& key, REGSAM access) {
        if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, Wide(key).c_str(), 0, access | KEY_WOW64_32KEY, &key_) != ERROR_SUCCESS)
            key_ = nullptr;
    }
    ~OpenKey() {
        if (key_) RegCloseKey(key_);
    }
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;
    HKEY Handle() const { return key_; }

private:
    HKEY key_ = nullptr;
};

// What a refused change says, with the system's own words.
std::string ChangeFailure(LONG status) {
    wchar_t* text = nullptr;
    FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                   static_cast<DWORD>(status), 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
    std::string message = LookupText("Mapsets", "Le registre n'a pas pu être modifié :", "msgRegistreRefus");
    if (text) {
        message += " " + Utf8(text);
        LocalFree(text);
    }
    return message;
}

class WindowsRegistry : public RegistryReader, public RegistryWriter {
public:
    std::vector<std::string> SubKeys(const std::string& key) const override {
        std::vector<std::string> names;
        OpenKey open(key, KEY_READ);
        wchar_t name[256];
        for (DWORD index = 0; open.Handle(); ++index) {
            DWORD length = 256;
            if (RegEnumKeyExW(open.Handle(), index, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
                break;
            names.push_back(Utf8(std::wstring(name, length)));
        }
        return names;
    }

    std::optional<std::string> Text(const std::string& key, const std::string& name) const override {
        DWORD type = 0;
        std::vector<BYTE> data = Read(key, name, type);
        if (type != REG_SZ && type != REG_EXPAND_SZ) return std::nullopt;
        std::wstring text(reinterpret_cast<const wchar_t*>(data.data()), data.size() / sizeof(wchar_t));
        return Utf8(text.substr(0, text.find(L'\0')));
    }

    std::optional<std::uint32_t> Number(const std::string& key, const std::string& name) const override {
        DWORD type = 0;
        std::vector<BYTE> data = Read(key, name, type);
        if ((type != REG_DWORD && type != REG_BINARY) || data.empty()) return std::nullopt;
        std::uint32_t number = 0;
        for (std::size_t i = std::min<std::size_t>(data.size(), 4); i-- > 0;) number = number << 8 | data[i];
        return number;
    }

    RegistryFailure SetText(const std::string& key, const std::string& name, const std::string& value) override {
        HKEY handle = nullptr;
        LONG status = RegCreateKeyExW(HKEY_LOCAL_MACHINE, Wide(key).c_str(), 0, nullptr, 0,
                                      KEY_SET_VALUE | KEY_WOW64_32KEY, nullptr, &handle, nullptr);
        if (status == ERROR_SUCCESS) {
            const std::wstring text = Wide(value);
            status = RegSetValueExW(handle, Wide(name).c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                                    static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
            RegCloseKey(handle);
        }
        if (status == ERROR_SUCCESS) return std::nullopt;
        return ChangeFailure(status);
    }

    RegistryFailure DeleteValue(const std::string& key, const std::string& name) override {
        OpenKey open(key, KEY_SET_VALUE);
        const LONG status =
            open.Handle() ? RegDeleteValueW(open.Handle(), Wide(name).c_str()) : static_cast<LONG>(ERROR_FILE_NOT_FOUND);
        if (status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND) return std::nullopt;
        return ChangeFailure(status);
    }

private:
    static std::vector<BYTE> Read(const std::string& key, const std::string& name, DWORD& type) {
        OpenKey open(key, KEY_QUERY_VALUE);
        DWORD size = 0;
        if (!open.Handle() ||
            RegQueryValueExW(open.Handle(), Wide(name).c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS)
            return {};
        std::vector<BYTE> data(size);
        if (RegQueryValueExW(open.Handle(), Wide(name).c_str(), nullptr, &type, data.data(), &size) != ERROR_SUCCESS)
            return {};
        data.resize(size);
        return data;
    }
};

// A registry writer that forwards to the reader object both roles live in.
class WindowsRegistryChanges : public RegistryWriter {
public:
    explicit WindowsRegistryChanges(WindowsRegistry& registry) : registry_(registry) {}
    RegistryFailure SetText(const std::string& key, const std::string& name, const std::string& value) override {
        return registry_.SetText(key, name, value);
    }
    RegistryFailure DeleteValue(const std::string& key, const std::string& name) override {
        return registry_.DeleteValue(key, name);
    }

private:
    WindowsRegistry& registry_;
};

std::filesystem::path EnvironmentFolder(const wchar_t* name) {
    const wchar_t* value = _wgetenv(name);
    return PathFromUtf8(value ? Utf8(value) : std::string());
}

}  // namespace

MapsetEnvironment WindowsMapsetEnvironment() {
    MapsetEnvironment environment;
    auto registry = std::make_unique<WindowsRegistry>();
    environment.RegistryChanges = std::make_unique<WindowsRegistryChanges>(*registry);
    environment.Registry = std::move(registry);
    environment.MapsFolder = EnvironmentFolder(L"ALLUSERSPROFILE") / "GARMIN" / "Maps";
    // HOMEPATH has no drive: those two caches are on the current drive.
    const std::filesystem::path home = EnvironmentFolder(L"HOMEPATH");
    environment.CacheFolders = {EnvironmentFolder(L"APPDATA") / "GARMIN" / "MapSource" / "TileCache",
                                home / "AppData" / "Local" / "GARMIN" / "BaseCamp" / "TileCache",
                                home / "AppData" / "Local" / "GARMIN" / "MapInstall" / "TileCache"};
    environment.Place = "Windows registry";
    return environment;
}

}  // namespace mirvane

#endif
