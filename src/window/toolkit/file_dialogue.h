#pragma once
/// \file
/// What the file dialogues of the program have in common.

#include <QFileDialog>
#include <functional>
#include <string>

#include "core/session.h"

namespace marvolin {

/// A file dialogue of the toolkit, which saves only to a folder that exists. It and the controls in it have their rows
/// of the table of controls.
class FileDialogue : public QFileDialog {
public:
    /// `complete` makes the file name of what was typed, before the toolkit asks about overwriting.
    FileDialogue(Session& session, QWidget* parent, bool save, const QString& caption,
                 std::function<std::string(const std::string& typed)> complete);

protected:
    void accept() override;

private:
    void DescribeParts(bool save);
    void CompleteName();

    Session& s;
    const std::function<std::string(const std::string& typed)> complete_;
};

}  // namespace marvolin
