#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

class QTranslator;

/// The texts of a module or program in one language: a Qt Linguist catalogue, or nothing where
/// there is none that can be read.
class LanguageResource
{
public:
    /// A catalogue that is missing, foreign or broken is logged and leaves the resource empty; an
    /// empty path leaves it empty without a word.
    LanguageResource(const QString& module, const QString& path);
    ~LanguageResource();
    LanguageResource(LanguageResource&&) noexcept;
    LanguageResource& operator=(LanguageResource&&) noexcept;

    const QString& module() const { return m_module; }
    const QString& path() const { return m_path; }
    /// A resource string in this language; empty where the catalogue does not have it.
    QString text(int id, const char* defaultText) const;
    /// Puts the texts in force for the whole program, and with them those of Qt's own dialogs and
    /// buttons in that language where they are installed.
    void install();
    /// Takes them out of force.
    void remove();

    /// The catalogue of a module for a locale, empty where there is none: beside it, else where the
    /// program's catalogues are installed.
    static QString find(const QString& modulePath, const QString& localeName);

private:
    QString m_module;
    QString m_path;
    QByteArray m_bytes; ///< the translator reads from them
    std::unique_ptr<QTranslator> m_translator;
    std::unique_ptr<QTranslator> m_qtTranslator;
};
