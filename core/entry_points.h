// The component's three exports, by which the host links and unlinks it. Each takes no
// arguments; the host finds them by name.
#pragma once

namespace afx {
class CDocTemplate;
}

extern "C" {
// Makes the project's document template and registers its tool bar group; the template,
// which the host keeps, or null when it can't be made. A second call gives the same one.
afx::CDocTemplate* LinkProjectDll();
// The same as LinkProjectDll.
afx::CDocTemplate* AttachDll();
// Closes every document, unloads the tool bar group and deletes the template; 0.
int UnlinkProjectDll();
}
