#include "host/dialogs/linetype/LinetypeFile.h"

#include "host/text/HostText.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <cmath>

namespace {
constexpr qint64 kLargestFile = 4 << 20;
constexpr qsizetype kMostLinetypes = 5000;
constexpr qsizetype kMostDashes = 64;
constexpr qsizetype kMostProblems = 50;
constexpr double kLongestDash = 1e6;

class Parser
{
public:
    LinetypeFile run(const QByteArray& bytes)
    {
        for (const QByteArray& raw : bytes.split('\n')) {
            ++m_line;
            const QString line = QString::fromUtf8(raw).trimmed();
            if (line.isEmpty() || line.startsWith(QLatin1Char(';')))
                continue;
            if (line.startsWith(QLatin1Char('*')))
                takeHead(line);
            else
                takePattern(line);
            if (m_result.linetypes.size() >= kMostLinetypes)
                break;
        }
        if (m_hasHead)
            problem(HostText::tr("the linetype \"%1\" has no pattern").arg(m_item.name));
        return m_result;
    }

private:
    void takeHead(const QString& line)
    {
        if (m_hasHead)
            problem(HostText::tr("the linetype \"%1\" has no pattern").arg(m_item.name));
        const qsizetype comma = line.indexOf(QLatin1Char(','));
        m_item = {};
        m_item.name = line.mid(1, comma < 0 ? -1 : comma - 1).trimmed();
        m_item.description = comma < 0 ? QString() : line.mid(comma + 1).trimmed();
        m_hasHead = !m_item.name.isEmpty();
        if (!m_hasHead)
            problem(HostText::tr("a linetype needs a name after the \"*\""));
    }

    void takePattern(const QString& line)
    {
        if (!m_hasHead)
            return problem(HostText::tr("a line \"*NAME,description\" was expected"));
        m_hasHead = false;
        if (line.contains(QLatin1Char('[')))
            return problem(HostText::tr("the linetype \"%1\" holds shapes or texts, which cannot "
                                        "be loaded")
                               .arg(m_item.name));
        QStringList parts = line.split(QLatin1Char(','));
        if (parts.takeFirst().trimmed().compare(QLatin1String("A"), Qt::CaseInsensitive) != 0
            || parts.isEmpty() || parts.size() > kMostDashes || !takeDashes(parts))
            return problem(HostText::tr("a pattern such as \"A,12,-3,0,-3\" was expected"));
        if (m_names.contains(m_item.name.toCaseFolded()))
            return problem(HostText::tr("the linetype \"%1\" is there twice").arg(m_item.name));
        m_names.insert(m_item.name.toCaseFolded());
        m_result.linetypes.append(m_item);
    }

    bool takeDashes(const QStringList& parts)
    {
        bool anyDrawn = false;
        double length = 0;
        for (const QString& part : parts) {
            bool isNumber = false;
            const double dash = part.trimmed().toDouble(&isNumber);
            if (!isNumber || !std::isfinite(dash) || std::abs(dash) > kLongestDash)
                return false;
            anyDrawn = anyDrawn || dash >= 0;
            length += std::abs(dash);
            m_item.dashes.push_back(dash);
        }
        return anyDrawn && length > 0;
    }

    void problem(const QString& what)
    {
        if (m_result.problems.size() < kMostProblems)
            m_result.problems << HostText::tr("Line %1: %2.").arg(m_line).arg(what);
    }

    LinetypeFile m_result;
    LinetypeItem m_item;
    QSet<QString> m_names;
    bool m_hasHead = false;
    int m_line = 0;
};
} // namespace

LinetypeFile LinetypeFile::parse(const QByteArray& bytes)
{
    return Parser().run(bytes);
}

LinetypeFile LinetypeFile::read(const QString& path)
{
    QFile file(path);
    LinetypeFile result;
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        result.problems << HostText::tr("%1 cannot be read.").arg(path);
        return result;
    }
    if (file.size() > kLargestFile) {
        result.problems << HostText::tr("%1 is larger than any file of linetypes.").arg(path);
        return result;
    }
    result = parse(file.read(kLargestFile));
    if (result.linetypes.isEmpty())
        result.problems.prepend(HostText::tr("%1 holds no linetypes.").arg(path));
    return result;
}
