#include "core/testing/loaded_project.h"

#include <unistd.h>

#include <cstdlib>

namespace velorand::testing {

void LoadedProjectTest::SetUp() {
    char* folder = getcwd(nullptr, 0);
    savedFolder_ = folder != nullptr ? folder : "/";
    std::free(folder);
    ProjectTest::SetUp();
}

void LoadedProjectTest::TearDown() {
    ProjectTest::TearDown();
    EXPECT_EQ(chdir(savedFolder_.c_str()), 0);
}

CProjectDoc* LoadedProjectTest::MakeProject(const std::string& folder, const std::string& id,
                                            const std::string& fileText) {
    CProjectDoc* doc = MakeDocument();
    if (doc == nullptr) {
        return nullptr;
    }
    doc->projectID = id;
    doc->location = sandbox.Platform(folder) + "\\";
    doc->SetPathName(WriteFile(folder + "/" + id + ".vpj", fileText).c_str(), win::FALSE);
    return doc;
}

std::vector<CSheetDoc*> LoadedProjectTest::Sheets() const {
    std::vector<CSheetDoc*> sheets;
    for (afx::POSITION pos = sheetTemplate->GetFirstDocPosition(); pos != nullptr;) {
        sheets.push_back(static_cast<CSheetDoc*>(sheetTemplate->GetNextDoc(pos)));
    }
    return sheets;
}

CSheetView* LoadedProjectTest::ViewOf(afx::CDocument* doc) {
    if (doc == nullptr) {
        return nullptr;
    }
    afx::POSITION pos = doc->GetFirstViewPosition();
    return pos != nullptr ? dynamic_cast<CSheetView*>(doc->GetNextView(pos)) : nullptr;
}

}  // namespace velorand::testing
