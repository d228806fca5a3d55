#include "support/RandomPrompts.h"

RandomPrompts::RandomPrompts(Roll roll, QStringList files)
    : m_roll(std::move(roll))
    , m_files(std::move(files))
    , m_before(install(this))
{ }

RandomPrompts::~RandomPrompts()
{
    install(m_before);
}

int RandomPrompts::ask(QWidget*, const TaskQuestion& question)
{
    const unsigned link = m_roll(static_cast<unsigned>(question.links.size()) + 1);
    return link == 0 ? kCancelled : question.links[static_cast<qsizetype>(link) - 1].id;
}
