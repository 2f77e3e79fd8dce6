#include "scripting/script_words.h"

#include "scripting/api/api_arguments.h"
#include "scripting/api/api_table.h"
#include "scripting/api/event_table.h"

namespace marvolin {

namespace {

std::string TextOf(const ApiFunction& function) {
    std::string text(function.Text);
    for (std::size_t i = 0; i < ParameterCount(function); ++i) {
        const ApiParameter& parameter = function.Parameters[i];
        text.append("\n").append(parameter.Name).append(": ").append(Wanted(parameter));
        if (parameter.Optional) text += "; may be left out";
    }
    if (!function.Returns.empty()) text.append("\nreturns ").append(function.Returns);
    return text;
}

ScriptWord WordOf(const ApiEvent& event) {
    std::string text(event.When);
    text.front() = static_cast<char>(text.front() - 'a' + 'A');  // all begin with a small letter
    text.append(".\nIt gets: ").append(event.Arguments);
    return {std::string(kScriptEventNames[static_cast<std::size_t>(event.Which)]), SignatureOf(event), text};
}

}  // namespace

std::vector<ScriptWord> ScriptWords() {
    std::vector<ScriptWord> words;
    for (const ApiSubject& subject : ApiSubjects()) {
        for (const ApiFunction& function : subject.Functions) {
            words.push_back({"marvolin." + std::string(function.Name), SignatureOf(function), TextOf(function)});
        }
    }
    for (const ApiEvent& event : kApiEvents) words.push_back(WordOf(event));
    return words;
}

}  // namespace marvolin
