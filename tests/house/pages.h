#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace marvolin::house {

/// Test programs by their name ("core_test"), each with its tests as "Suite.Name".
using TestPrograms = std::map<std::string, std::set<std::string>>;

/// The whole text of a file; "" when it cannot be read.
std::string ReadPage(const std::filesystem::path& file);

/// Every test program below `tests`, read from the `marvolin_test(...)` calls of its folders and their sources.
TestPrograms ReadTestPrograms(const std::filesystem::path& tests);

/// The spans of a page that stand in backticks, in their order; code blocks are left out.
std::vector<std::string> SpansOf(const std::string& page);

// Each check returns one line for each violation.

/// Tests that a page names as `core_test Suite.Name` and that no program has.
std::vector<std::string> TestsThatAreNot(const std::string& page, const TestPrograms& programs);

/// Rows of the tables of a page that name no test. A table's first two lines are its head.
std::vector<std::string> RowsWithoutATest(const std::string& page);

/// Files and folders that a page names and that are not below one of `roots`. A span names one when it has a slash and
/// looks like a path, or ends like a source or a page. "x.*" stands for "x.h".
std::vector<std::string> FilesThatAreNot(const std::string& page, const std::vector<std::filesystem::path>& roots);

/// Names in the first column of the tables of a page that are no word of any of `sources`. The case of letters and the
/// "k" of a constant do not count, since `quiet` and `kDigitWeight` are `Quiet` and `DigitWeight` to a reader. Spans
/// that are no plain word are not looked at.
std::vector<std::string> NamesThatAreNot(const std::string& page, const std::map<std::string, std::string>& sources);

}  // namespace marvolin::house
