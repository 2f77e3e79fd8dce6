#pragma once
/// \file
/// The forms, as far as start-up, shutdown and the modes of the window speak of them.

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

class Windows {
public:
    virtual ~Windows() = default;
    /// Makes the form, hidden.
    virtual void Load(Form form) = 0;
    virtual void Show(Form form) = 0;
    virtual void Hide(Form form) = 0;
    /// Closes the form for good. Raises `RuntimeError` 91 when it was never loaded.
    virtual void Unload(Form form) = 0;
    virtual void BringToFront(Form form) = 0;
    /// Frame of the form on the screen.
    virtual TwipRect Place(Form form) = 0;
    virtual void Move(Form form, double left, double top) = 0;
    /// Tells `frmBrowse` that its next close is a real one.
    virtual void AllowBrowserToClose() = 0;
    /// Makes the balls of pad and map answer the pointer, or not.
    virtual void EnablePadBalls(bool enabled) = 0;
};

}  // namespace marvolin
