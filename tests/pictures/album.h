#pragma once

#include <QWidget>
#include <functional>
#include <set>
#include <string>

namespace marvolin::test {

/// Writes pictures into a folder.
class Album {
public:
    /// Pictures go into `folder`, which exists. `suffix` ends each name, such as "@2".
    Album(std::string folder, std::string suffix) : folder_(std::move(folder)), suffix_(std::move(suffix)) {}

    /// Writes `widget` as it looks after all that waits to be done.
    void Add(QWidget& widget, const std::string& name);
    /// The same for what fills itself from behind, as a list of files does: when it has looked the same for a while.
    void AddWhenQuiet(QWidget& widget, const std::string& name);
    /// Each list of `form` that can be opened, as "NAME-list-LIST", once.
    void AddLists(QWidget& form, const std::string& name);
    /// Each control of `form` that can have the focus, while it has it, as "NAME-focus-CONTROL", once.
    void AddFocused(QWidget& form, const std::string& name);
    /// Runs `open`, which shows a dialogue and returns when that is closed; writes the dialogue and closes it.
    void AddDialogue(const std::function<void()>& open, const std::string& name);

    std::size_t Count() const { return names_.size(); }

private:
    void Write(const QImage& picture, const std::string& name);
    bool Has(const std::string& name) const { return names_.contains(name); }

    std::string folder_;
    std::string suffix_;
    std::set<std::string> names_;
};

}  // namespace marvolin::test
