#pragma once

class DocumentFiles;
class HostDocManager;
class HostDocument;
class HostFrontEnd;

/// Looks whether somebody else changed the files of open drawings, and tells the user of each
/// change once.
class ChangedFiles
{
public:
    ChangedFiles(HostDocManager& documents, DocumentFiles& files, HostFrontEnd& frontEnd)
        : m_documents(documents)
        , m_files(files)
        , m_frontEnd(frontEnd)
    { }

    /// Drawings without changes of their own may be read again, as the user says. Raises OdError
    /// when that fails; the drawing is as it was then.
    void check();

private:
    void tell(HostDocument& document);

    HostDocManager& m_documents;
    DocumentFiles& m_files;
    HostFrontEnd& m_frontEnd;
    bool m_isChecking = false;
};
