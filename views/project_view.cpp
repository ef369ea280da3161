#include "views/project_view.h"

namespace velorand {

IMPLEMENT_DYNCREATE(CProjectView, CView)

}  // namespace velorand
