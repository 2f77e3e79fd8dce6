#pragma once
/// \file
/// The hold of the mouse on a text that can be selected.

class QAbstractScrollArea;

namespace marvolin {

/// Makes a `QTextEdit` or `QPlainTextEdit` let go of the mouse when its release has not come. The toolkit scrolls a
/// text on a timer while the pointer selects beyond its edge, and goes on for ever where a drag of the text, a box or
/// another window took the release: the text then selects and drags with no button down, and each such drag takes the
/// mouse from the control that has it.
void LetGoWithoutButton(QAbstractScrollArea& text);

}  // namespace marvolin
