#include "sdk/texts/LanguageResource.h"

#include "sdk/texts/CatalogueFormat.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLoggingCategory>
#include <QTranslator>

namespace {

Q_LOGGING_CATEGORY(resourceLog, "kest.resource")

/// A catalogue of every text of both programs has some hundred kilobytes.
constexpr qint64 kLargestCatalogue = 16 * 1024 * 1024;

QByteArray readCatalogue(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qCWarning(resourceLog).noquote() << path << "cannot be read:" << file.errorString();
        return {};
    }
    const QByteArray bytes = file.read(kLargestCatalogue + 1);
    const char* fault =
        bytes.size() > kLargestCatalogue ? "it is larger than 16 MB" : catalogueFault(bytes);
    if (!fault)
        return bytes;
    qCWarning(resourceLog).noquote() << path << "is not used as a catalogue:" << fault;
    return {};
}

} // namespace

LanguageResource::LanguageResource(const QString& module, const QString& path)
    : m_module(module)
    , m_path(path)
    , m_bytes(path.isEmpty() ? QByteArray() : readCatalogue(path))
{
    if (m_bytes.isEmpty())
        return;
    m_translator = std::make_unique<QTranslator>();
    const auto* data = reinterpret_cast<const uchar*>(m_bytes.constData());
    if (!m_translator->load(data, static_cast<int>(m_bytes.size()))) {
        qCWarning(resourceLog).noquote() << path << "is not used as a catalogue: it has no texts";
        m_translator.reset();
    }
}

LanguageResource::~LanguageResource() = default;
LanguageResource::LanguageResource(LanguageResource&&) noexcept = default;
LanguageResource& LanguageResource::operator=(LanguageResource&&) noexcept = default;

QString LanguageResource::text(int id, const char* defaultText) const
{
    return m_translator
        ? m_translator->translate("KsResString", defaultText, QByteArray::number(id).constData())
        : QString();
}

void LanguageResource::install()
{
    if (!m_translator || !QCoreApplication::instance())
        return;
    const QString language = m_translator->language().section(QLatin1Char('_'), 0, 0);
    auto qtTranslator = std::make_unique<QTranslator>();
    if (!language.isEmpty()
        && qtTranslator->load(QStringLiteral("qtbase_") + language,
                              QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    {
        m_qtTranslator = std::move(qtTranslator);
        QCoreApplication::installTranslator(m_qtTranslator.get());
    }
    QCoreApplication::installTranslator(m_translator.get());
}

void LanguageResource::remove()
{
    if (!m_translator || !QCoreApplication::instance())
        return;
    QCoreApplication::removeTranslator(m_translator.get());
    m_qtTranslator.reset();
}

QString LanguageResource::find(const QString& modulePath, const QString& localeName)
{
    const QFileInfo module(modulePath);
    const QDir program(QCoreApplication::applicationDirPath());
    const QString folders[] = {
        module.path(), program.filePath(QStringLiteral("../share/kest/translations")),
        program.filePath(QStringLiteral("../" KEST_DATADIR "/kest/translations"))};
    for (const QString& folder : folders) {
        for (const QString& language : {localeName, localeName.section(QLatin1Char('_'), 0, 0)}) {
            QString path = QDir(folder).filePath(module.completeBaseName() + QLatin1Char('_')
                                                 + language + QStringLiteral(".qm"));
            if (!language.isEmpty() && QFileInfo(path).isFile())
                return QDir::cleanPath(path);
        }
    }
    return {};
}
