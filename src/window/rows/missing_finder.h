#pragma once

#include <QObject>
#include <QTimer>
#include <memory>
#include <optional>
#include <string>

#include "core/busy_pointer.h"
#include "core/session.h"
#include "persistence/missing/sample_search.h"

namespace marvolin {

/// Asks for a folder and looks in it and below for all missing samples, between the events of the window. The pointer
/// is busy meanwhile; Escape ends the search, and nothing is loaded then.
class MissingFinder : public QObject {
public:
    explicit MissingFinder(Session& session);
    ~MissingFinder() override;

    /// Shows the question for a folder, over `window`.
    void Ask(QWidget* window);
    /// Begins to look in `folder`. A search that runs ends.
    void Look(const std::string& folder);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void LookOn();
    void Stop();

    Session& s;
    std::unique_ptr<SampleSearch> search_;
    std::optional<BusyPointer> busy_;
    QTimer turn_;
};

}  // namespace marvolin
