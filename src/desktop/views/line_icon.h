// The icons of the tool bar and of the find bar: drawn in lines of the colour that letters have, so
// that they look alike on every desktop, light or dark, at every scale.

#pragma once

#include <QIcon>

namespace orvik {

enum class Drawing { Open, Save, Undo, Redo, Find, Move, Up, Down, Close };

[[nodiscard]] QIcon LineIcon(Drawing drawing);

}  // namespace orvik
