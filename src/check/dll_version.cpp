#include "check/dll_version.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cstdio>
#include <exception>
#include <optional>
#include <string_view>

namespace marvolin {

namespace {

bool IsBlank(const std::string& text) { return text.find_first_not_of(' ') == std::string::npos; }

std::string Upper(std::string text) {
    for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

/// A version as a number; none when the text is more than a number.
std::optional<double> NumberOf(const std::string& version) {
    double number = 0;
    const char* const end = version.data() + version.size();
    const auto read = std::from_chars(version.data(), end, number, std::chars_format::fixed);
    if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
    return number;
}

/// The version that counts: the needed one if it is among them, else the highest number; "" without any.
std::string Chosen(const std::vector<std::string>& versions, const std::string& needed) {
    if (std::find(versions.begin(), versions.end(), needed) != versions.end()) return needed;
    std::string highest;
    double height = 0;
    for (const std::string& version : versions) {
        const std::optional<double> number = NumberOf(version);
        if (!number || (!highest.empty() && *number <= height)) continue;
        highest = version;
        height = *number;
    }
    return highest;
}

std::string TextOf(const RegistryValue& value) {
    if (value.What == RegistryValue::Kind::Text) {
        const bool closed = !value.Bytes.empty() && value.Bytes.back() == '\0';
        return value.Bytes.substr(0, value.Bytes.size() - (closed ? 1 : 0));
    }
    std::uint32_t number = 0;
    for (auto byte = value.Bytes.rbegin(); byte != value.Bytes.rend(); ++byte) {
        number = number * 256 + static_cast<unsigned char>(*byte);
    }
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%03u", number);
    return text.data();
}

/// A resource's number may stand behind the name of a library.
std::string WithoutResource(const std::string& path) {
    constexpr std::string_view kMark = ".DLL\\";
    const std::size_t at = Upper(path).find(kMark);
    return at == std::string::npos ? path : path.substr(0, at + kMark.size() - 1);
}

}  // namespace

void CDLLVersion::LoadFileInfo(const std::string& file, const std::string& library, std::string& version) {
    path_.clear();
    date_ = 0;
    size_ = 0;
    verdict_.clear();
    if (IsBlank(file)) return;
    version_.clear();
    const Registration registered = LookUp(library, version);
    Judge(file, library, version, registered, Locate(file));
    ReadFile();
}

CDLLVersion::Registration CDLLVersion::LookUp(const std::string& library, std::string& version) {
    Registration registered;
    if (library.empty()) return registered;
    const std::string known = Chosen(system_.Versions(library), version);
    if (known.empty()) {
        registered.SubKeyMissing = true;
        return registered;
    }
    registered.VersionProblem = known != version && NumberOf(known) != NumberOf(version);
    version = known;
    registered.Path = RegisteredPath(library, version);
    return registered;
}

std::string CDLLVersion::RegisteredPath(const std::string& library, const std::string& version) {
    const std::vector<std::string> locales = system_.Locales(library, version);
    if (locales.empty()) return "";
    const bool neutral = std::find(locales.begin(), locales.end(), "0") != locales.end();
    const std::optional<RegistryValue> value = system_.Win32(library, version, neutral ? "0" : locales.front());
    return value ? WithoutResource(TextOf(*value)) : "";
}

LocatedFile CDLLVersion::Locate(const std::string& file) {
    const LocatedFile located = Upper(file).ends_with("EXE") ? system_.FindProgram(file) : system_.LoadLibrary(file);
    path_ = located.Path;
    if (!path_.empty()) return located;
    switch (located.Error) {
        case 0:
            path_ = file + " Not Found";
            break;
        case kLibraryNotLoaded:
            path_ = "Can't load " + file;
            break;
        default:
            path_ = system_.ErrorText(located.Error) + " " + file;
    }
    return located;
}

void CDLLVersion::Judge(const std::string& file, const std::string& library, const std::string& version,
                        const Registration& registered, const LocatedFile& located) {
    if (!registered.Path.empty()) {
        path_ = registered.Path;
        verdict_ = registered.VersionProblem ? "Ver " + version : "OK";
    } else if (located.Path.empty()) {
        verdict_ = registered.SubKeyMissing    ? "SubKey not found"
                   : registered.VersionProblem ? "Not complete"
                                               : "Not found";
    } else if (registered.SubKeyMissing) {
        verdict_ = "Not Registered";
    } else if (located.Path == kUnableToLocate) {
        path_ = file + " " + located.Path;
    } else {
        verdict_ = library.empty() ? "n/a" : "impossible";
    }
}

void CDLLVersion::ReadFile() {
    try {
        if (const std::optional<FixedVersion> fixed = system_.VersionResource(path_)) {
            const auto low = [](std::uint32_t word) {
                return std::to_string(static_cast<std::int16_t>(word & 0xFFFF));
            };
            const auto high = [](std::uint32_t word) { return std::to_string(word >> 16); };
            version_ = high(fixed->High) + "." + low(fixed->High) + "." + high(fixed->Low) + "." + low(fixed->Low);
        }
        const FileStamp stamp = system_.Stamp(path_);
        size_ = stamp.Size;
        date_ = stamp.Date;
    } catch (const std::exception&) {
        return;  // a path that is a failure's text has neither
    }
}

std::string CDLLVersion::GetOSVersion() const {
    const SystemVersion system = system_.System();
    const auto is = [&system](std::uint32_t platform, std::uint32_t major, std::uint32_t minor) {
        return system.Platform == platform && system.Major == major && system.Minor == minor;
    };
    if (is(1, 4, 0)) return "Windows 95";
    if (is(1, 4, 10)) return "Windows 98";
    if (is(2, 3, 51)) return "Windows NT 3.51";
    if (is(2, 4, 0)) return "Windows NT 4.0";
    if (is(2, 5, 0)) return "Windows 2000 (Build " + std::to_string(system.Build) + ")";
    return "Unknown";
}

}  // namespace marvolin
