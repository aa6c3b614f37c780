#pragma once

class QByteArray;

namespace tavrel {

/// Whether an SVG drawing shows pictures that are not inside it. Drawing it would open them,
/// whatever they are: a pipe would be waited for without end.
[[nodiscard]] bool showsOtherFiles(const QByteArray& drawing);

} // namespace tavrel
