#pragma once
/// \file
/// The forms, as far as start-up, shutdown and the modes of the window deal with them. Behind it stands the toolkit
/// (window/toolkit/qt_windows.h). A call for a form that is not loaded does nothing, except `Show` and `Unload`.

#include <cstdint>
#include <string>

namespace marvolin {

/// A place or a size on the screen, in twips.
struct TwipRect {
    double Left = 0;
    double Top = 0;
    double Width = 0;
    double Height = 0;
};

/// The forms of the program.
enum class Form : std::uint8_t { Main, Browse, Save, Splash, StartUpQuery };

/// Loads, shows and places the forms.
class Windows {
public:
    virtual ~Windows() = default;
    /// Makes the form, hidden.
    virtual void Load(Form form) = 0;
    /// Shows the form; loads it first if need be.
    virtual void Show(Form form) = 0;
    virtual void Hide(Form form) = 0;
    /// Closes the form for good. Raises `NoObjectError` when it is not loaded.
    virtual void Unload(Form form) = 0;
    /// Raises the form above the others and makes it the active one.
    virtual void BringToFront(Form form) = 0;
    /// Frame of the form on the screen; an empty one when it is not loaded.
    virtual TwipRect Place(Form form) = 0;
    /// Moves the top left corner of the frame, in twips.
    virtual void Move(Form form, double left, double top) = 0;
    /// Lets `frmBrowse` really close the next time; otherwise a close only hides it.
    virtual void AllowBrowserToClose() = 0;
    /// Decides whether the balls of pad and map react to the pointer.
    virtual void EnablePadBalls(bool enabled) = 0;
};

}  // namespace marvolin
