// POSITION: the framework's cursor over a list (documents of a template, views of a
// document). Null means no more; GetNext... gives the element and moves the cursor on.
#pragma once

#include <cstddef>

namespace afx {

struct POSITION_;
using POSITION = POSITION_*;

// Cursors are positions counted from 1, so that null stays "no more".
inline POSITION PositionAt(std::size_t index) {
    return reinterpret_cast<POSITION>(index + 1);
}
inline std::size_t IndexOf(POSITION pos) {
    return reinterpret_cast<std::size_t>(pos) - 1;
}

}  // namespace afx
