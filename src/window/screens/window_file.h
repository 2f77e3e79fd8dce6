#pragma once

#include <QPoint>
#include <QSize>
#include <QString>
#include <map>

namespace marvolin {

/// Where a window was.
struct WindowPlace {
    QPoint Corner;  ///< top left corner of the frame, pixels at 100 %
    QSize Size;     ///< of the window without its frame, pixels of the window
    /// It filled the screen; `Corner` and `Size` are those to which it goes back.
    bool Maximised = false;
    friend bool operator==(const WindowPlace&, const WindowPlace&) = default;
};

/// What the program knows from one start to the next: its windows, and what belongs to the place where it runs rather
/// than to a set.
struct WindowRecord {
    int Size = 0;                           ///< that the player has chosen, percent; 0 none
    bool Elements = false;                  ///< those of Save/Open are unfolded
    std::map<QString, WindowPlace> Places;  ///< by name of the window
    bool Headphones = false;                ///< the player wears them
    friend bool operator==(const WindowRecord&, const WindowRecord&) = default;
};

/// Reads the file of the windows. Lines that mean nothing, and numbers that cannot be meant, are left out; a file that
/// is missing or something else is an empty record.
WindowRecord ReadWindowFile(const QString& path);
/// Writes the file; what was there before stays whole until the new one is. False when the folder cannot be written.
bool WriteWindowFile(const QString& path, const WindowRecord& record);

}  // namespace marvolin
