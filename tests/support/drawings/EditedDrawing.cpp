#include "support/drawings/EditedDrawing.h"

#include "database/tables/OdDbLayerTable.h"
#include "io/DrawingCodec.h"
#include "io/DrawingFile.h"
#include "support/drawings/BinaryDrawing.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

struct Group
{
    QByteArray code;
    QByteArray value;
};

QList<Group> groupsOf(QByteArray text)
{
    const QList<QByteArray> lines = text.replace("\r\n", "\n").split('\n');
    QList<Group> groups;
    for (qsizetype i = 0; i + 1 < lines.size(); i += 2)
        groups.append({lines[i].trimmed(), lines[i + 1]});
    return groups;
}

} // namespace

EditedDrawing::EditedDrawing(const QByteArray& text)
    : m_text(text)
    , m_database(readDrawing(text, QStringLiteral("edited.dxf")))
{ }

OdDbLayerTableRecordPtr EditedDrawing::layer(const char* name) const
{
    return m_database->layerTable()
        .getAt(QString::fromUtf8(name))
        .safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
}

OdDbObjectId EditedDrawing::object(quint64 handle) const
{
    return m_database->getOdDbObjectId(OdDbHandle(handle));
}

QByteArray EditedDrawing::saved() const
{
    EXPECT_EQ(m_database->audit(), QStringList());
    return drawingBytes(*m_database);
}

QStringList EditedDrawing::notKept() const
{
    return DrawingSource::of(*m_database).write(*m_database).report.notKept;
}

std::unique_ptr<OdDbDatabase> EditedDrawing::reread() const
{
    auto again = readDrawing(saved(), QStringLiteral("again.dxf"));
    EXPECT_EQ(again->audit(), QStringList());
    return again;
}

std::string EditedDrawing::record(const char* type, const char* codeAndValue) const
{
    return record(saved(), type, codeAndValue);
}

std::string EditedDrawing::record(const QByteArray& text, const char* type,
                                  const char* codeAndValue)
{
    const QString wanted = QString::fromUtf8(codeAndValue);
    QStringList found;
    bool inside = false;
    for (const Group& group : groupsOf(text)) {
        if (group.code == "0") {
            if (inside && found.contains(wanted))
                return found.join(u' ').toStdString();
            inside = group.value == type;
            found.clear();
        } else if (inside) {
            found.append(QString::fromUtf8(group.code + '=' + group.value.trimmed()));
        }
    }
    return {};
}

int EditedDrawing::count(const QByteArray& text, const char* type)
{
    const QList<Group> groups = groupsOf(text);
    return static_cast<int>(std::count_if(groups.begin(), groups.end(), [&](const Group& group) {
        return group.code == "0" && group.value == type;
    }));
}

std::string EditedDrawing::variable(const QByteArray& text, const char* name)
{
    const QList<Group> groups = groupsOf(text);
    for (qsizetype i = 0; i + 1 < groups.size(); ++i) {
        if (groups[i].code == "9" && groups[i].value == name)
            return groups[i + 1].value.trimmed().toStdString();
    }
    return {};
}

bool EditedDrawing::isSameInBinary(const QByteArray& text, int codeBytes, const Edit& edit)
{
    const EditedDrawing plain(text);
    edit(*plain);
    const auto binary =
        readDrawing(BinaryDrawing::fromText(text, codeBytes), QStringLiteral("twin.dxf"));
    edit(*binary);
    return plain.saved() != text
        && drawingBytes(*binary) == BinaryDrawing::fromText(plain.saved(), codeBytes);
}
