#pragma once
/// \file
/// What the component check asks of the system: its registry of type libraries, and the files of the components. Behind
/// it stands the system's loader (check/loader_libraries.h).

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace marvolin {

/// A value of the registry as it is stored.
struct RegistryValue {
    enum class Kind : std::uint8_t {
        Text,    ///< with a zero character behind it
        Number,  ///< four bytes, the lowest first
    };
    Kind What = Kind::Text;
    std::string Bytes;
};

/// Where a file was found.
struct LocatedFile {
    std::string Path;         ///< "" when it was not found; `kUnableToLocate` when it is there, but does not say where
    std::uint32_t Error = 0;  ///< number of the system's last error; 0 for none
};
inline constexpr std::string_view kUnableToLocate = "Unable to locate";
/// The system's error for a library that cannot be loaded.
inline constexpr std::uint32_t kLibraryNotLoaded = 1157;

/// The file version of a version resource, as its two double words.
struct FixedVersion {
    std::uint32_t High = 0;
    std::uint32_t Low = 0;
};

struct FileStamp {
    std::int64_t Size = 0;  ///< bytes
    std::int64_t Date = 0;  ///< seconds since 1970
};

/// What the system says of itself.
struct SystemVersion {
    std::uint32_t Platform = 0;  ///< 1 Windows 95 and its successors, 2 Windows NT; any other has no name here
    std::uint32_t Major = 0;
    std::uint32_t Minor = 0;
    std::uint32_t Build = 0;
};

/// The questions of the component check. No answer is kept.
class TypeLibraries {
public:
    virtual ~TypeLibraries() = default;

    /// The subkeys of the key "TypeLib\" + `library`: the registered versions, as texts. Empty when there is no key.
    virtual std::vector<std::string> Versions(const std::string& library) = 0;
    /// The subkeys of that version: locales.
    virtual std::vector<std::string> Locales(const std::string& library, const std::string& version) = 0;
    /// The default value of the subkey "Win32" of that locale: the registered path.
    virtual std::optional<RegistryValue> Win32(const std::string& library, const std::string& version,
                                               const std::string& locale) = 0;

    /// Loads a library by its name, reads the path of its module and lets it go.
    virtual LocatedFile LoadLibrary(const std::string& file) = 0;
    /// Looks for a program in its own path, or in the current folder.
    virtual LocatedFile FindProgram(const std::string& file) = 0;
    /// The system's text for an error.
    virtual std::string ErrorText(std::uint32_t error) = 0;

    /// The version resource of a file; none when it has none.
    virtual std::optional<FixedVersion> VersionResource(const std::string& path) = 0;
    /// Size and date of a file. Raises `RuntimeError` when they cannot be read.
    virtual FileStamp Stamp(const std::string& path) = 0;

    virtual SystemVersion System() = 0;
    /// Under which name the player knows this component: what is to be installed.
    virtual std::string PlayersName(const std::string& file) { return file; }
    /// Where the player gets what this component lacks; "" when nobody knows.
    virtual std::string Address(const std::string&) { return ""; }
};

}  // namespace marvolin
