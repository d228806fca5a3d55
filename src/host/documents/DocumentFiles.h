#pragma once

#include "host/application/HostFrontEnd.h"

class HostDocManager;

/// Opening, saving and closing: the drawings on one side, their files on the other. Everything that
/// fails raises OdError and leaves files and documents as they were.
class DocumentFiles
{
public:
    explicit DocumentFiles(HostDocManager& documents)
        : m_documents(documents)
    { }
    void setFrontEnd(HostFrontEnd& frontEnd) { m_frontEnd = &frontEnd; }

    /// Opens the drawing of that file; a drawing that is open already becomes current.
    HostDocument& open(const QString& path);
    /// A new drawing, "Drawing1" or the next free number.
    HostDocument& createNew();
    /// Writes the drawing to its own file.
    SaveReport save(HostDocument& document);
    /// Writes the drawing to that file, which becomes its own. ".dxf" is added to names without
    /// suffix.
    SaveReport saveAs(HostDocument& document, const QString& path);

    /// Whether an empty document that nobody touched stands alone: opening a file takes its place.
    static bool isPristine(const HostDocument& document);

private:
    HostDocManager& m_documents;
    HostFrontEnd* m_frontEnd = nullptr;
    int m_newCount = 0;
};
