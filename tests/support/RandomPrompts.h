#pragma once

#include "toolkit/Prompts.h"

#include <QStringList>

#include <functional>

/// Closes every message and answers every question by lot, as long as it lives.
class RandomPrompts : public Prompts
{
public:
    /// A number below the one given.
    using Roll = std::function<unsigned(unsigned sides)>;

    /// Questions for a file are answered with one of these, or cancelled.
    explicit RandomPrompts(Roll roll, QStringList files = {});
    ~RandomPrompts() override;
    RandomPrompts(const RandomPrompts&) = delete;
    RandomPrompts& operator=(const RandomPrompts&) = delete;

    void message(QWidget*, const QString&, Icon) override { ++m_messages; }
    bool confirm(QWidget*, const QString&) override { return m_roll(2) == 0; }
    int ask(QWidget*, const TaskQuestion& question) override;
    QString openFile(QWidget*, const FileQuestion&) override { return file(); }
    QString saveFile(QWidget*, const FileQuestion&) override { return file(); }

    int messages() const { return m_messages; }

private:
    QString file() { return m_files.value(m_roll(static_cast<unsigned>(m_files.size()) + 1)); }

    Roll m_roll;
    QStringList m_files;
    Prompts* m_before;
    int m_messages = 0;
};
