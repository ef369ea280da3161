// Work files: the project's private folder with a working copy of each changed
// schematic, the map back to the real files, and the clean-up of folders.
#include <cstdint>
#include <string>

#include "core/file_kinds.h"
#include "core/project_doc.h"
#include "core/temp_folder.h"
#include "platform/afx/document.h"
#include "platform/win/file_attributes.h"
#include "platform/win/files.h"
#include "platform/win/find.h"
#include "platform/win/folders.h"
#include "platform/win/strings.h"

namespace velorand {

namespace {

constexpr std::size_t kMaxFileName = 256;

bool Exists(const std::string& path) {
    return win::GetFileAttributes(path.c_str()) != win::INVALID_FILE_ATTRIBUTES;
}

// A document's file: its path name, or its title when it has none.
std::string FileOf(afx::CDocument* doc) {
    if (doc == nullptr) {
        return {};
    }
    return doc->GetPathName().empty() ? doc->GetTitle() : doc->GetPathName();
}

std::string WithBackslash(std::string folder) {
    if (folder.empty() || folder.back() != '\\') {
        folder += '\\';
    }
    return folder;
}

}  // namespace

std::string CProjectDoc::GetWorkFile(const char* path) {
    if (workFolder.empty()) {
        const char* extension = GetFileExtension(kWorkFolder);
        std::string candidate = location + projectID + extension;
        ownWorkFolder = 1;
        win::_finddata_t found;
        std::intptr_t search = win::_findfirst(candidate.c_str(), &found);
        if (search != -1) {
            win::_findclose(search);  // left by a crash or an earlier load: used as it is
        } else if (!win::CreateDirectory(candidate.c_str())) {
            // The project's folder can't be written: the temporary folder stands in.
            const std::string temp = TempFolder();
            candidate = temp + projectID + extension;
            if (!win::CreateDirectory(candidate.c_str())) {
                candidate = temp;
                ownWorkFolder = 0;
            }
        }
        workFolder = candidate;
    }
    if (path == nullptr) {
        return {};
    }
    return WithBackslash(workFolder) + std::string(FileNamePart(path).substr(0, kMaxFileName));
}

int CProjectDoc::RefreshWorkFile(afx::CDocument* doc) {
    const std::string file = FileOf(doc);
    if (file.empty()) {
        return 0;
    }
    const std::string work = GetWorkFile(file.c_str());
    workFiles.try_emplace(work, file);
    win::CopyFile(file.c_str(), work.c_str(), win::FALSE);
    return 1;
}

int CProjectDoc::SaveToWorkFile(afx::CDocument* doc) {
    const std::string file = FileOf(doc);
    if (file.empty()) {
        return 0;
    }
    const std::string work = GetWorkFile(file.c_str());
    win::DeleteFile(work.c_str());
    // The real file is still behind the document, so it stays modified.
    const win::BOOL modified = doc->IsModified();
    doc->OnSaveDocument(work.c_str());
    doc->SetModifiedFlag(modified);
    workFiles.try_emplace(work, file);
    doc->SetPathName(file.c_str(), win::TRUE);
    return 1;
}

void CProjectDoc::GetRealFile(const char* path, std::string& out) const {
    out.clear();
    const std::string given = path != nullptr ? path : "";
    const char* extension = GetFileExtension(kWorkFolder);
    if (given.find(extension) != std::string::npos) {
        if (auto it = workFiles.find(given); it != workFiles.end()) {
            out = it->second;
            StatusMessage("Using work file (" + given + ") <-> (" + out + ")");
        } else {
            StatusMessage("Could not find work file mapping (" + given + ") ...");
            // Leaves the work folder's own component out: right for a work folder in the
            // project's folder.
            std::size_t start = 0;
            std::size_t end = given.find('\\');
            out = given.substr(0, end);
            while (end != std::string::npos) {
                start = end + 1;
                end = given.find('\\', start);
                std::string piece = given.substr(start, end - start);
                if (piece.find(extension) == std::string::npos) {
                    out += '\\' + piece;
                }
            }
        }
    }
    if (out.empty()) {
        out = given;
    }
}

int CProjectDoc::DeleteOutputFile(const char* folder, const char* name) {
    if (name == nullptr || *name == '\0' || !IsOutputFile(name)) {
        return 0;
    }
    win::DeleteFile((std::string(folder != nullptr ? folder : "") + name).c_str());
    return 1;
}

int CProjectDoc::CleanFolder(const char* folder, const char* pattern) {
    if (folder == nullptr || *folder == '\0' || pattern == nullptr) {
        return 0;  // "\" alone would be the root of the drive
    }
    const std::string dir = WithBackslash(folder);
    if (win::EqualNoCase(dir, TempFolder())) {
        return 0;
    }
    const bool everything = pattern[0] == '*';
    win::_finddata_t entry;
    std::intptr_t search = win::_findfirst((dir + pattern).c_str(), &entry);
    if (search != -1) {
        do {
            if ((entry.attrib & win::_A_SUBDIR) != 0) {
                continue;
            }
            if (everything) {
                win::DeleteFile((dir + entry.name).c_str());
            } else {
                DeleteOutputFile(dir.c_str(), entry.name);
            }
        } while (win::_findnext(search, &entry) == 0);
        win::_findclose(search);
    }
    win::_rmdir(folder);  // stays when something is left in it
    return 1;
}

int CProjectDoc::RemoveWorkFolder(const char* folder) {
    if (folder == nullptr && !ownWorkFolder) {
        return 0;
    }
    const std::string dir = folder != nullptr ? folder : workFolder;
    if (CleanFolder(dir.c_str(), "*.*") == 1) {
        workFolder.clear();
    }
    return 1;
}

int CProjectDoc::SetAsideSchematic(const char* base) {
    for (const char* extension : {".sch", ".sym"}) {
        const std::string real = std::string(base) + extension;
        const std::string work = GetWorkFile(real.c_str());
        if (!Exists(real) ||
            !win::MoveFileEx(real.c_str(), work.c_str(), win::MOVEFILE_REPLACE_EXISTING)) {
            return 0;
        }
    }
    return 1;
}

void CProjectDoc::RestoreSchematic(const char* base) {
    for (const char* extension : {".sch", ".sym"}) {
        const std::string work = GetWorkFile((std::string(base) + extension).c_str());
        if (!Exists(work)) {
            continue;
        }
        std::string real;
        GetRealFile(work.c_str(), real);
        if (!win::MoveFileEx(work.c_str(), real.c_str(), win::MOVEFILE_REPLACE_EXISTING)) {
            return;
        }
    }
}

}  // namespace velorand
