#include "host/canvas/text/PlainText.h"

namespace {

constexpr QChar kDegreeSign(0x00B0);
constexpr QChar kPlusMinus(0x00B1);
constexpr QChar kDiameter(0x2300);
const QLatin1String kTab("    ");

/// Walks over multi-line text and collects what is visible of it.
class MultiLineStripper
{
public:
    explicit MultiLineStripper(const QString& coded)
        : m_in(coded)
    {
        m_out.reserve(coded.size());
    }

    QString strip()
    {
        while (m_at < m_in.size()) {
            const QChar c = m_in[m_at++];
            if (c == u'\\' && m_at < m_in.size())
                escape(m_in[m_at++]);
            else if (c == u'\t')
                m_out += kTab;
            else if (c != u'{' && c != u'}' && c != u'\r')
                m_out += c;
        }
        return plainSingleLine(m_out);
    }

private:
    void escape(QChar code)
    {
        switch (code.unicode()) {
        case u'P':
        case u'N': // next column: the text goes on below
        case u'X':
            m_out += u'\n';
            break;
        case u'~':
            m_out += QChar(QChar::Nbsp);
            break;
        case u'\\':
        case u'{':
        case u'}':
            m_out += code;
            break;
        case u'L':
        case u'l':
        case u'O':
        case u'o':
        case u'K':
        case u'k':
            break;
        case u'S':
            stack();
            break;
        case u'A':
        case u'C':
        case u'c':
        case u'F':
        case u'f':
        case u'H':
        case u'Q':
        case u'T':
        case u'W':
        case u'p':
            argument();
            break;
        default:
            m_out += u'\\';
            m_out += code;
        }
    }

    /// Skips to behind the semicolon that ends a code's argument.
    void argument()
    {
        const qsizetype end = m_in.indexOf(u';', m_at);
        m_at = end < 0 ? m_in.size() : end + 1;
    }

    void stack()
    {
        for (; m_at < m_in.size() && m_in[m_at] != u';'; ++m_at) {
            const QChar c = m_in[m_at];
            if (c == u'\\' && m_at + 1 < m_in.size())
                m_out += m_in[++m_at];
            else if (c == u'^' || c == u'#')
                m_out += u'/';
            else
                m_out += c;
        }
        ++m_at;
    }

    const QString& m_in;
    QString m_out;
    qsizetype m_at = 0;
};

bool threeDigits(const QString& text, qsizetype at)
{
    return at + 3 <= text.size() && text[at].isDigit() && text[at + 1].isDigit()
        && text[at + 2].isDigit();
}

} // namespace

QString plainSingleLine(const QString& coded)
{
    if (!coded.contains(QLatin1String("%%")))
        return coded;
    QString out;
    qsizetype at = 0;
    while (at < coded.size()) {
        if (coded[at] != u'%' || at + 2 >= coded.size() || coded[at + 1] != u'%') {
            out += coded[at++];
            continue;
        }
        const QChar code = coded[at + 2].toLower();
        if (threeDigits(coded, at + 2)) {
            out += QChar(coded.mid(at + 2, 3).toUShort());
            at += 5;
            continue;
        }
        if (code == u'd')
            out += kDegreeSign;
        else if (code == u'p')
            out += kPlusMinus;
        else if (code == u'c')
            out += kDiameter;
        else if (code == u'%')
            out += u'%';
        else if (code != u'u' && code != u'o' && code != u'k')
            out += coded[at + 2];
        at += 3;
    }
    return out;
}

QString plainMultiLine(const QString& coded)
{
    return MultiLineStripper(coded).strip();
}
