#include "database/drawing/ReactorTrouble.h"

#include "database/values/OdError.h"

#include <QCoreApplication>

namespace {

reactor_trouble::Teller s_teller;

QString sentenceOfCurrentError()
{
    const auto failed = [](const QString& why) {
        return QCoreApplication::translate("Database", "A change could not be followed: %1")
            .arg(why);
    };
    try {
        throw;
    } catch (const OdError& error) {
        return failed(error.description());
    } catch (const std::exception& error) {
        return failed(QString::fromLocal8Bit(error.what()));
    } catch (...) {
        return QCoreApplication::translate("Database", "A change could not be followed.");
    }
}

} // namespace

void reactor_trouble::setTeller(Teller teller)
{
    s_teller = std::move(teller);
}

void reactor_trouble::tell() noexcept
{
    try {
        if (s_teller)
            s_teller(sentenceOfCurrentError());
    } catch (...) {
        // There is nobody left to tell it to.
    }
}
