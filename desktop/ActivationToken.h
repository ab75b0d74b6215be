#pragma once

#include <QByteArray>

namespace orv {

/// Puts the desktop's leave to take the focus where the toolkit's Wayland plug-in looks for it, which is one variable
/// of the environment and nowhere else; an empty one takes it away. What does not fit is as good as none.
///
/// Other threads read the environment at any time, so its list never grows after the first call, which main() makes
/// before there are any. On the main thread only.
void setActivationToken(const QByteArray& token);

}  // namespace orv
