#pragma once
/// \file
/// The component check on a system without a registry of components. Each component is a library that does its work
/// here, and the system's loader is asked for it: whether it can be loaded, and whether it has the newest function that
/// the program calls. One that has not was installed for another release, and would stop the program in the middle of
/// something.

#include <array>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "check/check_components.h"
#include "check/type_libraries.h"

namespace marvolin {

/// A library, and a function that it must have, by the loader's name for it. Without a function it is enough that the
/// library is there: it is not loaded before somebody needs it, if it lies beside one that is loaded.
struct LoaderLibrary {
    const char* File = nullptr;  ///< null: no library
    const char* Function = nullptr;
    const char* Address = "";  ///< where players get it, if a box tells them
};

/// What does the work of a component.
struct StandIn {
    Component For;
    std::array<LoaderLibrary, 2> Libraries;
};

/// What does the work of each component of the check, and of the script engine.
std::span<const StandIn> StandIns();

/// The system's loader as a registry. A component whose libraries are good is registered in the version that is needed;
/// one that lacks a function in version "0"; one that cannot be loaded not at all. Libraries that are loaded for the
/// check stay until the end of the object.
class LoaderLibraries : public TypeLibraries {
public:
    explicit LoaderLibraries(std::span<const StandIn> standIns = StandIns()) : standIns_(standIns) {}

    std::vector<std::string> Versions(const std::string& library) override;
    std::vector<std::string> Locales(const std::string& library, const std::string& version) override;
    std::optional<RegistryValue> Win32(const std::string& library, const std::string& version,
                                       const std::string& locale) override;
    LocatedFile LoadLibrary(const std::string& file) override;
    LocatedFile FindProgram(const std::string& file) override;
    std::string ErrorText(std::uint32_t error) override;
    /// The numbers behind ".so." in the name of the file that a library's name leads to.
    std::optional<FixedVersion> VersionResource(const std::string& path) override;
    FileStamp Stamp(const std::string& path) override;
    SystemVersion System() override { return {}; }
    /// The file of the first library of the component that is not good.
    std::string PlayersName(const std::string& file) override;
    /// That of the same library.
    std::string Address(const std::string& file) override;

private:
    struct Close {
        void operator()(void* library) const;
    };
    using Handle = std::unique_ptr<void, Close>;

    const StandIn* ByLibrary(std::string_view library) const;
    const StandIn* ByFile(std::string_view file) const;
    void* Loaded(const char* file);
    LocatedFile Module(const char* file);
    LocatedFile Beside(std::string_view file) const;
    LocatedFile Located(const LoaderLibrary& library);
    bool Has(const LoaderLibrary& library);
    const LoaderLibrary* BadOne(const StandIn& standIn);

    std::span<const StandIn> standIns_;
    std::map<std::string, Handle, std::less<>> loaded_;  ///< null: cannot be loaded
};

}  // namespace marvolin
