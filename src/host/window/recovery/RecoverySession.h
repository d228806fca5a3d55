#pragma once

#include <QString>

class DocumentFiles;
class HostFrontEnd;
class JournalKeeper;
class RecoveryFolder;
struct RecoveryJournal;

/// At the start of the program: offers the edits that an earlier run left unsaved. What cannot be
/// recovered is told and kept under another name.
class RecoverySession
{
public:
    RecoverySession(RecoveryFolder& folder, DocumentFiles& files, JournalKeeper& keeper,
                    HostFrontEnd& frontEnd)
        : m_folder(folder)
        , m_files(files)
        , m_keeper(keeper)
        , m_frontEnd(frontEnd)
    { }

    void offer();

private:
    void offer(const QString& path);
    void recover(const QString& path, const RecoveryJournal& journal);
    void setAside(const QString& path, const QString& why);

    RecoveryFolder& m_folder;
    DocumentFiles& m_files;
    JournalKeeper& m_keeper;
    HostFrontEnd& m_frontEnd;
};
