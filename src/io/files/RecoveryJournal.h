#pragma once

#include "io/files/FileLayout.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <vector>

class OdDbDatabase;

/// The unsaved edits of a drawing, as the difference between its file and what a save would write.
/// As a file: a mark, the fields, and a ContentHash over all of it.
struct RecoveryJournal
{
    /// A range of the drawing's file, or bytes that are not in it.
    struct Piece
    {
        quint64 begin = 0;
        quint64 end = 0;
        QByteArray bytes;
        bool operator==(const Piece&) const = default;
    };

    QString path; ///< the drawing's file; empty for a drawing that was never saved
    QString title; ///< what the user knows the drawing by
    qint64 written = 0; ///< when, in milliseconds since 1970
    quint64 fileSize = 0;
    qint64 fileModified = 0; ///< as FileIdentity has it
    quint64 fileHash = 0; ///< ContentHash of the file
    std::vector<Piece> pieces;

    /// The edits of a drawing whose file is laid out like that. Raises OdError for what the
    /// format cannot hold.
    static RecoveryJournal of(const OdDbDatabase& database, const FileLayout& file);

    QByteArray toBytes() const;
    /// Raises OdError_FileAccess for anything but a whole journal. The bytes may come from
    /// anywhere.
    static RecoveryJournal fromBytes(QByteArrayView bytes);
    /// Reads a journal's file, in the same way.
    static RecoveryJournal load(const QString& path);

    /// Whether these are the bytes of the file that the edits belong to.
    bool fits(QByteArrayView file) const;
    /// The edited drawing. `file` must fit.
    QByteArray applyTo(QByteArrayView file) const;
    /// Where an image of the edited drawing stands in the drawing's file.
    std::vector<ImageRun> runs() const;
};
