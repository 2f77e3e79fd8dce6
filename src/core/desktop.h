#pragma once
/// \file
/// What the instrument asks of the desktop around it. Behind it stands the toolkit (window/toolkit/qt_desktop.h).
///
/// Lengths of the window are twips, 15 to a logical pixel on every screen. `SetCursorPos` and `ClipCursor` do nothing
/// on a system that does not let programs move the pointer.

#include <cstdint>
#include <string>

namespace marvolin {

/// Looks of a message box.
enum class BoxStyle : std::uint8_t {
    Plain,     ///< one OK button
    Critical,  ///< one OK button and the sign of an error
    Question,  ///< OK and Cancel
};

/// A rectangle on the screen, in logical pixels.
struct PixelRect {
    std::int32_t Left = 0;
    std::int32_t Top = 0;
    std::int32_t Right = 0;
    std::int32_t Bottom = 0;
    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

/// A point on the screen, in logical pixels.
struct PixelPoint {
    std::int32_t X = 0;
    std::int32_t Y = 0;
    friend bool operator==(const PixelPoint&, const PixelPoint&) = default;
};

/// The two surfaces on which a ball is dragged.
enum class Surface : std::uint8_t { Pad, Map };

/// Boxes, pointer, screen, temporary files, help, and the end of the program.
class Desktop {
public:
    virtual ~Desktop() = default;

    /// Shows a message box and waits for the answer: true for OK. An empty title becomes the program's name. For
    /// questions, and for errors at which the program ends.
    virtual bool MessageBox(const std::string& text, const std::string& title, BoxStyle style) = 0;
    /// A plain box under the program's name.
    bool MessageBox(const std::string& text) { return MessageBox(text, "", BoxStyle::Plain); }

    /// Shows a box that only reports, and returns at once: the player goes on playing beside it. A report that comes
    /// while one is shown replaces its text and title. `style` is not `Question`.
    virtual void Report(const std::string& text, const std::string& title, BoxStyle style) = 0;
    /// A plain report under the program's name.
    void Report(const std::string& text) { Report(text, "", BoxStyle::Plain); }

    /// Shows the busy pointer, or the usual one again.
    virtual void SetBusyPointer(bool busy) = 0;

    /// Colour depth of the window's device.
    virtual std::int32_t BitsPerPixel() = 0;
    /// The desktop without its panels, in logical pixels.
    virtual PixelRect WorkArea() = 0;
    virtual double TwipsPerPixelX() = 0;
    virtual double TwipsPerPixelY() = 0;
    /// Width of `text` in the main window's font, in twips.
    virtual std::int32_t TextWidth(const std::string& text) = 0;

    /// The top left corner of a surface's inner area on the screen (`ClientToScreen` of its origin).
    virtual PixelPoint SurfaceOrigin(Surface surface) = 0;
    /// Place of the pointer on the screen.
    virtual PixelPoint CursorPos() = 0;
    /// Moves the pointer.
    virtual void SetCursorPos(PixelPoint point) = 0;
    /// Keeps the pointer inside the rectangle.
    virtual void ClipCursor(const PixelRect& rect) = 0;
    /// Lets the pointer leave the rectangle again.
    virtual void ReleaseCursor() = 0;

    /// A new unique file in the system's temporary folder whose name starts with `prefix`; "" on failure.
    virtual std::string TempFileName(const std::string& prefix) = 0;
    /// The program's folder (core/files/own_folder.h), without a separator at its end.
    virtual std::string ProgramFolder() = 0;
    /// True when no other instance of the program is running. The claim holds until the process ends.
    virtual bool ClaimInstance() = 0;

    /// Opens the help viewer on `topic`, on the contents when it has no page. Raises `RuntimeError` when the help file
    /// cannot be opened.
    virtual void ShowHelpTopic(std::int32_t topic) = 0;
    /// Closes the top window with this title, if there is one.
    virtual void CloseWindowTitled(const std::string& title) = 0;

    /// Unloads the main window, which shuts the program down.
    virtual void UnloadMainWindow() = 0;
    /// Ends the process at once, without the shutdown.
    virtual void EndProgram() = 0;
};

}  // namespace marvolin
