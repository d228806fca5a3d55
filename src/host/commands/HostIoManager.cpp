#include "host/commands/HostIoManager.h"

#include "host/application/HostFrontEnd.h"
#include "host/commands/CommandProcessor.h"
#include "host/text/HostText.h"
#include "sdk/KestStatus.h"

void HostIoManager::print(const QString& line)
{
    if (m_frontEnd)
        m_frontEnd->print(line);
}

int HostIoManager::getString(const QString& prompt, QString& value)
{
    const std::optional<QString> answer = m_commands.nextAnswer(prompt);
    if (!answer) {
        // In a script the answer is missing: that must not pass for a command that went well.
        if (m_frontEnd && !m_frontEnd->isInteractive())
            m_commands.noteFailure(
                HostText::tr("\"%1\" is asked, and the line holds no answer.").arg(prompt));
        return kest::kCancel;
    }
    if (answer->isEmpty())
        return kest::kNone;
    value = *answer;
    return kest::kNormal;
}

int HostIoManager::getInt(const QString& prompt, int& value)
{
    QString text;
    for (;;) {
        const int status = getString(prompt, text);
        if (status != kest::kNormal)
            return status;
        bool isNumber = false;
        const int number = text.trimmed().toInt(&isNumber);
        if (isNumber) {
            value = number;
            return kest::kNormal;
        }
        const QString sentence = HostText::tr("An integer is needed; \"%1\" is none.").arg(text);
        if (!m_frontEnd || !m_frontEnd->isInteractive()) {
            m_commands.noteFailure(sentence);
            return kest::kError;
        }
        print(sentence);
    }
}
