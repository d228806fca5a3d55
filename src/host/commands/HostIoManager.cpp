#include "host/commands/HostIoManager.h"

#include "database/drawing/OdDbDatabase.h"
#include "host/application/HostDialogs.h"
#include "host/application/HostFrontEnd.h"
#include "host/commands/CommandProcessor.h"
#include "host/commands/KeywordList.h"
#include "host/commands/drawing/PointText.h"
#include "host/text/HostText.h"
#include "sdk/KestStatus.h"

void HostIoManager::print(const QString& line)
{
    if (m_frontEnd)
        m_frontEnd->print(line);
}

int HostIoManager::textOf(const HostQuestion& question, QString& value)
{
    const std::optional<QString> answer = m_commands.nextAnswer(question);
    if (!answer) {
        // In a script the answer is missing: that must not pass for a command that went well.
        if (m_frontEnd && !m_frontEnd->isInteractive())
            m_commands.noteFailure(HostText::tr("\"%1\" is asked, and the line holds no answer.")
                                       .arg(question.prompt));
        return kest::kCancel;
    }
    if (answer->isEmpty())
        return kest::kNone;
    value = *answer;
    return kest::kNormal;
}

bool HostIoManager::mayAskAgain(const QString& sentence)
{
    if (!m_frontEnd || !m_frontEnd->isInteractive()) {
        m_commands.noteFailure(sentence);
        return false;
    }
    m_commands.dropAnswers();
    print(sentence);
    return true;
}

int HostIoManager::getString(const QString& prompt, QString& value)
{
    return textOf(prompt, value);
}

int HostIoManager::getInt(const QString& prompt, int& value)
{
    QString text;
    for (;;) {
        const int status = textOf(prompt, text);
        if (status != kest::kNormal)
            return status;
        bool isNumber = false;
        const int number = text.trimmed().toInt(&isNumber);
        if (isNumber) {
            value = number;
            return kest::kNormal;
        }
        if (!mayAskAgain(HostText::tr("An integer is needed; \"%1\" is none.").arg(text)))
            return kest::kError;
    }
}

int HostIoManager::getKeyword(const QString& prompt, const QStringList& words, int& index)
{
    const KeywordList keywords(words);
    HostQuestion question(keywords.prompt(prompt));
    question.keywords = words;
    QString text;
    for (;;) {
        const int status = textOf(question, text);
        if (status != kest::kNormal)
            return status;
        const KeywordList::Choice choice = keywords.find(text);
        if (choice.index >= 0) {
            index = choice.index;
            return kest::kNormal;
        }
        if (!mayAskAgain(keywords.complaint(text)))
            return kest::kError;
    }
}

int HostIoManager::openDrawing(const QString& path, std::unique_ptr<OdDbDatabase>& drawing,
                               QString& why)
{
    if (!m_frontEnd)
        return kest::kError;
    try {
        drawing = m_frontEnd->readDrawingFile(path);
        return kest::kNormal;
    } catch (const OdError& error) {
        why = error.description();
        return error.code() == OdResult::Cancelled ? kest::kCancel : kest::kError;
    }
}

int HostIoManager::selectFile(const KestFileRequest& request, QString& path, int& filterIndex)
{
    return m_dialogs ? m_dialogs->selectFile(request, path, filterIndex) : kest::kError;
}

int HostIoManager::getPoint(const QString& prompt, KestPoint& point, const KestPoint* from)
{
    HostQuestion question(prompt);
    question.wants = HostQuestion::Wants::Point;
    if (from)
        question.from = QPointF(from->x, from->y);
    const Vec3 base = from ? Vec3{from->x, from->y, from->z} : Vec3{};
    QString text;
    for (;;) {
        const int status = textOf(question, text);
        if (status != kest::kNormal)
            return status;
        if (const auto given = point_text::parse(text, base)) {
            point = {given->x, given->y, given->z};
            return kest::kNormal;
        }
        if (!mayAskAgain(point_text::complaint(text)))
            return kest::kError;
    }
}
