#pragma once

#include <QTimer>

#include "window/controls/text_button.h"
#include "window/descriptions/own_value.h"

namespace marvolin {

/// `Record`: starts a recording of what is heard, or ends it. It is lit while one runs, and keeps an eye on it.
class RecordButton : public TextButton, public HasOwnValue {
public:
    static constexpr int kPeriod = 250;  ///< ms between two looks at the recording

    RecordButton(Session& session, QWidget* parent);

    /// Starts a recording at this time of the day, or ends it.
    static void Toggle(Session& s);
    void Refresh() override;
    /// Time and size of the recording, and its whole path.
    std::string OwnValue() const override;

protected:
    /// The second click of a double click does nothing: it would end what the first one began.
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QTimer timer_;  // runs while a recording does
};

}  // namespace marvolin
