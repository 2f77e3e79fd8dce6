#pragma once
/// \file
/// The facts about one component.

#include <cstdint>
#include <string>

#include "check/type_libraries.h"

namespace marvolin {

/// Says whether a component is registered in the version that the program needs. Nothing here raises an error: what is
/// wrong is in the verdict.
class CDLLVersion {
public:
    /// `system` must outlive the object.
    explicit CDLLVersion(TypeLibraries& system) : system_(system) {}

    /// Takes up the facts about a component: its file, the identifier of its type library ("" for none) and the version
    /// that is needed. When another version is registered, `version` becomes that one. A blank file name clears path,
    /// date, size and verdict.
    void LoadFileInfo(const std::string& file, const std::string& library, std::string& version);

    /// The registered path, else the path where the file was found, else a short text that says why not.
    const std::string& FilePathName() const { return path_; }
    std::int64_t FileDate() const { return date_; }  ///< seconds since 1970; 0 unknown
    std::int64_t FileSize() const { return size_; }  ///< bytes; 0 unknown
    /// Four numbers with points between them; "" when the file has no version resource.
    const std::string& FileVersion() const { return version_; }
    /// "OK", or why not: "Ver " with the registered version, "Not found", "Not Registered" ...
    const std::string& FileRegistrationInfo() const { return verdict_; }

    /// Name of the operating system, "Unknown" for any but those of a short list.
    std::string GetOSVersion() const;

private:
    /// What the registry knows of a component.
    struct Registration {
        bool SubKeyMissing = false;   ///< no version is registered
        bool VersionProblem = false;  ///< another version is
        std::string Path;
    };
    Registration LookUp(const std::string& library, std::string& version);
    std::string RegisteredPath(const std::string& library, const std::string& version);
    LocatedFile Locate(const std::string& file);
    void Judge(const std::string& file, const std::string& library, const std::string& version,
               const Registration& registered, const LocatedFile& located);
    void ReadFile();

    TypeLibraries& system_;
    std::string path_;
    std::int64_t date_ = 0;
    std::int64_t size_ = 0;
    std::string version_;
    std::string verdict_;
};

}  // namespace marvolin
