#pragma once

#include <QDeadlineTimer>
#include <QString>

namespace tavrel {

/// Whether a bus at a D-Bus address answers to who we are, by the deadline. The toolkit, once it
/// connects, waits for as long as it takes, and all its other connections with it.
[[nodiscard]] bool busAnswers(const QString& address, const QDeadlineTimer& deadline);

} // namespace tavrel
