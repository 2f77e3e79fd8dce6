#pragma once
/// \file
/// A registry of type libraries and a disk, as tables in memory.

#include <map>
#include <string>
#include <vector>

#include "check/check_components.h"
#include "check/type_libraries.h"
#include "core/errors.h"

namespace marvolin::test {

struct Registry : TypeLibraries {
    /// The keys of a version: locale, and the value of its subkey "Win32"; none for a locale without that subkey.
    using LocaleKeys = std::vector<std::pair<std::string, std::optional<RegistryValue>>>;
    struct Version {
        std::string Name;
        LocaleKeys Locales;
    };
    std::map<std::string, std::vector<Version>> Keys;  ///< by identifier
    std::map<std::string, LocatedFile> Files;          ///< what loading or looking for a name finds
    std::map<std::string, FixedVersion> Resources;     ///< by path
    std::map<std::string, FileStamp> Stamps;           ///< by path
    std::map<std::uint32_t, std::string> ErrorTexts;   ///< by number
    std::map<std::string, std::string> PlayersNames;   ///< by file; others have their own
    SystemVersion Running;
    std::vector<std::string> Log;  ///< the questions, in order

    static RegistryValue Text(const std::string& text) { return {RegistryValue::Kind::Text, text + '\0'}; }
    static RegistryValue Number(const std::string& bytes) { return {RegistryValue::Kind::Number, bytes}; }

    /// Registers a version, in the neutral locale.
    void Register(std::string_view library, const std::string& version, const std::string& path) {
        Keys[std::string(library)].push_back({version, {{"0", Text(path)}}});
    }
    /// Registers a component as it must be, and puts its file on the disk.
    void Install(const Component& component) {
        const std::string path = "C:\\WINDOWS\\SYSTEM\\" + std::string(component.File);
        Register(component.Library, std::string(component.Version), path);
        Files[std::string(component.File)].Path = path;
    }
    void InstallAll() {
        for (const Component& component : kRequiredComponents) Install(component);
        Install(kScriptComponent);
    }
    void Remove(const Component& component) {
        Keys.erase(std::string(component.Library));
        Files.erase(std::string(component.File));
    }

    std::vector<std::string> Versions(const std::string& library) override {
        Log.push_back("Versions " + library);
        std::vector<std::string> names;
        for (const Version& version : Keys[library]) names.push_back(version.Name);
        return names;
    }
    std::vector<std::string> Locales(const std::string& library, const std::string& version) override {
        std::vector<std::string> names;
        for (const auto& [locale, value] : Find(library, version)) names.push_back(locale);
        return names;
    }
    std::optional<RegistryValue> Win32(const std::string& library, const std::string& version,
                                       const std::string& locale) override {
        for (const auto& [name, value] : Find(library, version)) {
            if (name == locale) return value;
        }
        return std::nullopt;
    }
    LocatedFile LoadLibrary(const std::string& file) override {
        Log.push_back("LoadLibrary " + file);
        return Files[file];
    }
    LocatedFile FindProgram(const std::string& file) override {
        Log.push_back("FindProgram " + file);
        return Files[file];
    }
    std::string ErrorText(std::uint32_t error) override { return ErrorTexts[error]; }
    std::optional<FixedVersion> VersionResource(const std::string& path) override {
        const auto found = Resources.find(path);
        if (found == Resources.end()) return std::nullopt;
        return found->second;
    }
    FileStamp Stamp(const std::string& path) override {
        const auto found = Stamps.find(path);
        if (found == Stamps.end()) throw RuntimeError(53, "File not found");
        return found->second;
    }
    SystemVersion System() override { return Running; }
    std::string PlayersName(const std::string& file) override {
        const auto found = PlayersNames.find(file);
        return found == PlayersNames.end() ? file : found->second;
    }

private:
    LocaleKeys Find(const std::string& library, const std::string& version) {
        for (const Version& known : Keys[library]) {
            if (known.Name == version) return known.Locales;
        }
        return {};
    }
};

}  // namespace marvolin::test
