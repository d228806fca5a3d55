#pragma once

#include <QHash>
#include <QString>

class GroupCursor;
class OdDbDatabase;

/// Font families of a drawing's text styles, read when first asked for.
class TextStyles
{
public:
    TextStyles(const OdDbDatabase& database, GroupCursor& cursor)
        : m_database(database)
        , m_cursor(cursor)
    { }

    /// Family of a style; empty where the style names a stroke font or is missing.
    QString family(const QString& styleName);

private:
    QString read(quint32 slot);

    const OdDbDatabase& m_database;
    GroupCursor& m_cursor;
    QHash<QString, QString> m_families;
};
