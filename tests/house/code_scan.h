#pragma once

#include <string>
#include <vector>

namespace marvolin::house {

/// A function that a file defines or declares outside of other functions.
struct Function {
    std::string Name;      ///< as written: "LoopPlay", "FrmMain::ToggleMode", "operator=="
    int Line = 0;          ///< of its first word, from 1
    int Lines = 0;         ///< from there to the closing brace; 0 for a declaration
    bool InClass = false;  ///< stands in a class
    bool Hidden = false;   ///< stands in an unnamed namespace or is static, so that no other file sees it
    friend bool operator==(const Function&, const Function&) = default;
};

/// `text` with its comments, preprocessor lines and the content of its literals blanked; lines stay where they are.
std::string WithoutWords(const std::string& text);

/// A character of a name.
bool IsWord(char c);

/// The functions of a source, in order: those with a body, and those that are declared to have one elsewhere. Pure
/// virtual, defaulted and deleted functions and friends are left out. Reads code that compiles, without macros that
/// open or close braces.
std::vector<Function> FunctionsOf(const std::string& text);

}  // namespace marvolin::house
