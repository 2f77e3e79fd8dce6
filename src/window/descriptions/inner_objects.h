#pragma once

#include <QAccessible>
#include <map>

class QWidget;

namespace marvolin {

/// The parts of a control as objects of assistive technology, children of the control's own. Each is made when it is
/// first asked for and lives as long as this.
class InnerObjects {
public:
    /// `owner` is the object of `widget`, and outlives this.
    InnerObjects(QAccessibleInterface& owner, QWidget& widget) : owner_(owner), widget_(widget) {}
    ~InnerObjects();
    InnerObjects(const InnerObjects&) = delete;
    InnerObjects& operator=(const InnerObjects&) = delete;

    /// 0 for a control without parts.
    int Count() const;
    /// Null for a number that no part has.
    QAccessibleInterface* At(int part);
    /// The number of a part; -1 for another object.
    int NumberOf(const QAccessibleInterface* object) const;
    /// The part at a place on the screen; null beside them.
    QAccessibleInterface* AtPlace(int x, int y);

private:
    QAccessibleInterface& owner_;
    QWidget& widget_;
    std::map<int, QAccessible::Id> made_;
};

}  // namespace marvolin
