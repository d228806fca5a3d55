#include "host/canvas/text/TextStyles.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbSymbolTable.h"
#include "database/values/GroupCursor.h"

namespace {

/// Family that an outline font's file holds, for styles that name the file only.
QString familyOfFile(const QString& file)
{
    struct Known
    {
        const char* file;
        const char* family;
    };
    constexpr Known kKnown[] = {
        {"arial", "Arial"},           {"arialbd", "Arial"},           {"arialn", "Arial Narrow"},
        {"times", "Times New Roman"}, {"timesbd", "Times New Roman"}, {"cour", "Courier New"},
        {"verdana", "Verdana"},       {"tahoma", "Tahoma"},           {"calibri", "Calibri"},
        {"isocpeur", "ISOCPEUR"},     {"romans__", "RomanS"},         {"swissl", "Swiss 721 Light"},
    };
    const qsizetype dot = file.lastIndexOf(u'.');
    const QString extension = file.mid(dot + 1).toLower();
    if (dot < 0 || (extension != QLatin1String("ttf") && extension != QLatin1String("otf")))
        return {};
    const qsizetype folder = std::max(file.lastIndexOf(u'/'), file.lastIndexOf(u'\\'));
    const QString base = file.mid(folder + 1, dot - folder - 1).toLower();
    for (const Known& known : kKnown) {
        if (base == QLatin1String(known.file))
            return QLatin1String(known.family);
    }
    return base;
}

} // namespace

QString TextStyles::family(const QString& styleName)
{
    const QString name = styleName.isEmpty() ? QStringLiteral("STANDARD") : styleName;
    const auto known = m_families.constFind(name);
    if (known != m_families.cend())
        return known.value();
    const OdDbObjectId style = m_database.table(OdDbTableKind::Style).getAt(name);
    const QString family = style.isNull() ? QString() : read(style.slot());
    m_families.insert(name, family);
    return family;
}

QString TextStyles::read(quint32 slot)
{
    enum { kFontFile = 3, kApplication = 1001, kExtendedText = 1000 };
    QString family;
    bool isFontData = false;
    m_cursor.open(slot);
    while (m_cursor.next()) {
        if (m_cursor.code() == kFontFile)
            family = familyOfFile(m_cursor.text());
        else if (m_cursor.code() == kApplication)
            isFontData = m_cursor.text().compare(QLatin1String("ACAD"), Qt::CaseInsensitive) == 0;
        else if (m_cursor.code() == kExtendedText && isFontData && !m_cursor.text().isEmpty())
            return m_cursor.text();
    }
    return family;
}
