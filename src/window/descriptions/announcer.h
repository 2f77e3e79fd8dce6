#pragma once

#include <QAccessible>
#include <QObject>
#include <QTimer>
#include <functional>
#include <map>
#include <string>

class QWidget;

namespace marvolin {

/// Tells assistive technology what has changed on the drawn controls in sight: values, texts, states. It looks at all
/// of them a few times a second and tells the difference, so nothing can change untold, and what moves all the time, as
/// in a fade, is told when it begins to and when it rests. Without assistive technology it does not look.
class Announcer : public QObject, QAccessible::ActivationObserver {
public:
    static constexpr int kPeriod = 150;  ///< ms

    /// Tells by `tell`.
    explicit Announcer(std::function<void(QAccessibleEvent*)> tell = QAccessible::updateAccessibility);
    ~Announcer() override;

    /// Looks now. What is seen for the first time is not told.
    void Look();
    /// Whether it looks by itself.
    bool Looks() const { return timer_.isActive(); }

protected:
    void accessibilityActiveChanged(bool active) override;

private:
    struct Told {
        std::string Value;
        double Number = 0;
        bool On = false;
        friend bool operator==(const Told&, const Told&) = default;
    };
    struct Heard {
        Told Said;           // told last
        Told Seen;           // seen last
        bool Moves = false;  // that was another than before
    };
    void Tell(QWidget& widget, const Told& before, const Told& now);
    Heard LookAt(QWidget& widget, const Told& now);

    const std::function<void(QAccessibleEvent*)> tell_;
    QTimer timer_;
    std::map<const QWidget*, Heard> told_;
};

}  // namespace marvolin
