#include "check/loader_libraries.h"

#include <dlfcn.h>
#include <link.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <system_error>

#include "core/errors.h"

namespace marvolin {

namespace {

constexpr std::uint32_t kFileNotFound = 2;
constexpr int kMostLinks = 8;
constexpr const char* kWidgets = "libQt6Widgets.so.6";

// The functions of the toolkit have the names that the compiler gives them; each makes the control that stands in. The
// reader of pictures and Lua are loaded when they are first needed.
constexpr std::array<StandIn, 13> kStandIns{{
    {kRequiredComponents[0],
     {{{"libopenal.so.1", "alcRenderSamplesSOFT", "https://openal-soft.org"},
       {"libSDL2-2.0.so.0", "SDL_JoystickPath", "https://libsdl.org"}}}},
    {kRequiredComponents[1], {{{"libsndfile.so.1", "sf_open_fd"}}}},
    {kRequiredComponents[2], {{{"libQt6Core.so.6", "_ZN6QTimerC1EP7QObject"}}}},
    {kRequiredComponents[3], {{{kWidgets, "_ZN7QTabBarC1EP7QWidget"}}}},
    {kRequiredComponents[4], {{{"libQt6Svg.so.6"}}}},
    {kRequiredComponents[5], {{{kWidgets, "_ZN11QListWidgetC1EP7QWidget"}}}},
    {kRequiredComponents[6], {{{kWidgets, "_ZN10QScrollBarC1EP7QWidget"}}}},
    {kRequiredComponents[7], {{{kWidgets, "_ZN9QTreeViewC1EP7QWidget"}}}},
    {kRequiredComponents[8], {{{"liblnk.so.1", "liblnk_file_open"}}}},
    {kRequiredComponents[9], {{{kWidgets, "_ZN11QHBoxLayoutC1EP7QWidget"}}}},
    {kRequiredComponents[10], {{{"libQt6Gui.so.6", "_ZN8QPainterC1EP12QPaintDevice"}}}},
    {kRequiredComponents[11], {{{kWidgets, "_ZN11QFileDialogC1EP7QWidgetRK7QStringS4_S4_"}}}},
    {kScriptComponent, {{{"liblua5.4.so.0"}}}},
}};

/// Where the links of a path lead. Only the file is a link here, so its folders are not asked one by one, as
/// `canonical` would, which is most of the time of the whole check.
std::filesystem::path Followed(std::filesystem::path path) {
    std::error_code error;
    for (int link = 0; link < kMostLinks; ++link) {
        const std::filesystem::path target = std::filesystem::read_symlink(path, error);
        if (error) break;
        path = path.parent_path() / target;
    }
    return path;
}

std::uint32_t Word(std::string_view& numbers) {
    std::uint16_t word = 0;
    const auto read = std::from_chars(numbers.data(), numbers.data() + numbers.size(), word);
    numbers.remove_prefix(static_cast<std::size_t>(read.ptr - numbers.data()));
    if (numbers.starts_with('.')) numbers.remove_prefix(1);
    return word;
}

}  // namespace

std::span<const StandIn> StandIns() { return kStandIns; }

void LoaderLibraries::Close::operator()(void* library) const { ::dlclose(library); }

const StandIn* LoaderLibraries::ByLibrary(std::string_view library) const {
    const auto found = std::find_if(standIns_.begin(), standIns_.end(),
                                    [&](const StandIn& standIn) { return standIn.For.Library == library; });
    return found == standIns_.end() ? nullptr : &*found;
}

const StandIn* LoaderLibraries::ByFile(std::string_view file) const {
    const auto found = std::find_if(standIns_.begin(), standIns_.end(),
                                    [&](const StandIn& standIn) { return standIn.For.File == file; });
    return found == standIns_.end() ? nullptr : &*found;
}

void* LoaderLibraries::Loaded(const char* file) {
    const auto known = loaded_.find(std::string_view(file));
    if (known != loaded_.end()) return known->second.get();
    // Not every library bears being unloaded. In the program all of them stay anyhow: it is linked to them.
    return loaded_.emplace(file, Handle(::dlopen(file, RTLD_LAZY | RTLD_LOCAL | RTLD_NODELETE))).first->second.get();
}

LocatedFile LoaderLibraries::Module(const char* file) {
    void* const library = Loaded(file);
    if (library == nullptr) return {"", kLibraryNotLoaded};
    const link_map* module = nullptr;
    if (::dlinfo(library, RTLD_DI_LINKMAP, &module) != 0 || module == nullptr || *module->l_name == '\0') {
        return {std::string(kUnableToLocate), 0};
    }
    return {module->l_name, 0};
}

LocatedFile LoaderLibraries::Beside(std::string_view file) const {
    for (const auto& [name, library] : loaded_) {
        const link_map* module = nullptr;
        if (!library || ::dlinfo(library.get(), RTLD_DI_LINKMAP, &module) != 0 || module == nullptr) continue;
        const std::string_view path = module->l_name;
        const std::string beside = std::string(path.substr(0, path.rfind('/') + 1)).append(file);
        if (::access(beside.c_str(), R_OK) == 0) return {beside, 0};
    }
    return {};
}

LocatedFile LoaderLibraries::Located(const LoaderLibrary& library) {
    if (library.Function == nullptr) {
        const LocatedFile beside = Beside(library.File);
        if (!beside.Path.empty()) return beside;
    }
    return Module(library.File);
}

bool LoaderLibraries::Has(const LoaderLibrary& library) {
    if (library.Function == nullptr) return !Located(library).Path.empty();
    void* const loaded = Loaded(library.File);
    return loaded != nullptr && ::dlsym(loaded, library.Function) != nullptr;
}

std::vector<std::string> LoaderLibraries::Versions(const std::string& library) {
    const StandIn* const standIn = ByLibrary(library);
    if (standIn == nullptr) return {};
    bool whole = true;
    for (const LoaderLibrary& part : standIn->Libraries) {
        if (part.File == nullptr) continue;
        if (Located(part).Path.empty()) return {};
        whole = whole && Has(part);
    }
    return {whole ? std::string(standIn->For.Version) : "0"};
}

std::vector<std::string> LoaderLibraries::Locales(const std::string& library, const std::string&) {
    if (ByLibrary(library) == nullptr) return {};
    return {"0"};
}

std::optional<RegistryValue> LoaderLibraries::Win32(const std::string& library, const std::string&,
                                                    const std::string&) {
    const StandIn* const standIn = ByLibrary(library);
    if (standIn == nullptr) return std::nullopt;
    const LocatedFile file = Located(standIn->Libraries.front());
    if (file.Path.empty()) return std::nullopt;
    return RegistryValue{RegistryValue::Kind::Text, file.Path + '\0'};
}

LocatedFile LoaderLibraries::LoadLibrary(const std::string& file) {
    const StandIn* const standIn = ByFile(file);
    if (standIn == nullptr) return Module(file.c_str());
    for (const LoaderLibrary& part : standIn->Libraries) {
        if (part.File != nullptr && Located(part).Path.empty()) return {"", kLibraryNotLoaded};
    }
    return Located(standIn->Libraries.front());
}

LocatedFile LoaderLibraries::FindProgram(const std::string& file) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) return {"", kFileNotFound};
    return {std::filesystem::absolute(file, error).string(), 0};
}

std::string LoaderLibraries::ErrorText(std::uint32_t error) {
    return std::generic_category().message(static_cast<int>(error));
}

std::optional<FixedVersion> LoaderLibraries::VersionResource(const std::string& path) {
    constexpr std::string_view kMark = ".so.";
    const std::string name = Followed(path).filename().string();
    const std::size_t mark = name.find(kMark);
    if (mark == std::string::npos) return std::nullopt;
    std::string_view numbers = std::string_view(name).substr(mark + kMark.size());
    FixedVersion version;
    version.High = Word(numbers) << 16;
    version.High |= Word(numbers);
    version.Low = Word(numbers) << 16;
    version.Low |= Word(numbers);
    return version;
}

FileStamp LoaderLibraries::Stamp(const std::string& path) {
    struct stat file {};
    if (::stat(path.c_str(), &file) != 0) throw RuntimeError(53, "File not found");
    return {static_cast<std::int64_t>(file.st_size), static_cast<std::int64_t>(file.st_mtime)};
}

/// The first library of a component that is not good; null when all are.
const LoaderLibrary* LoaderLibraries::BadOne(const StandIn& standIn) {
    for (const LoaderLibrary& part : standIn.Libraries) {
        if (part.File != nullptr && !Has(part)) return &part;
    }
    return nullptr;
}

std::string LoaderLibraries::PlayersName(const std::string& file) {
    const StandIn* const standIn = ByFile(file);
    const LoaderLibrary* const bad = standIn == nullptr ? nullptr : BadOne(*standIn);
    return bad == nullptr ? file : bad->File;
}

std::string LoaderLibraries::Address(const std::string& file) {
    const StandIn* const standIn = ByFile(file);
    const LoaderLibrary* const bad = standIn == nullptr ? nullptr : BadOne(*standIn);
    return bad == nullptr ? "" : bad->Address;
}

}  // namespace marvolin
