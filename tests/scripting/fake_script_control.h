#pragma once
/// \file
/// A script engine whose procedures are functions of the test.

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "core/errors.h"
#include "scripting/script_control.h"

namespace marvolin::test {

class FakeScriptControl : public ScriptControl, public ScriptCode {
public:
    using Procedure = std::function<void(std::span<const double>)>;
    std::map<std::string, Procedure, std::less<>> Procedures;  ///< what the next text defines
    std::vector<std::string> Texts;                            ///< the texts given, in order; "" for a reset
    std::function<void()> TopLevel;
    ScriptError Last;

    bool Available() override { return true; }
    void AddCode(const std::string& text) override {
        Texts.push_back(text);
        if (TopLevel) TopLevel();
    }
    std::function<void()> Reading;  ///< what a check does
    void Check(const std::string&) override {
        if (Reading) Reading();
    }
    void Reset() override { Texts.emplace_back(); }
    bool Resting = false;
    bool IsResting() override { return Resting; }
    ScriptCode& CodeObject() override { return *this; }
    const ScriptError& Error() const override { return Last; }

    bool Defines(std::string_view procedure) override { return Procedures.contains(procedure); }
    void Run(std::string_view procedure, std::span<const double> arguments) override {
        const auto found = Procedures.find(procedure);
        if (found != Procedures.end()) found->second(arguments);
    }

    /// Fails as an engine does: with a description of the failure at hand.
    void Fail(const std::string& description, std::int32_t line, std::int32_t column) {
        Last = {description, line, column};
        throw RuntimeError(1, description);
    }
};

}  // namespace marvolin::test
