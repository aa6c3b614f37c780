#pragma once

#include <QDeadlineTimer>
#include <QString>

namespace tavrel {

/// Whether the bus at a D-Bus address accepts our authentication by the deadline. To be asked
/// before Qt connects: Qt 6.4 waits without a timeout for a bus that does not answer, and its other
/// bus connections wait with it.
[[nodiscard]] bool busAnswers(const QString& address, const QDeadlineTimer& deadline);

} // namespace tavrel
