#include "support/pictures/GoldenLook.h"

#include "support/TestFailure.h"
#include "support/pictures/StillStyle.h"

#include <QApplication>
#include <QFontInfo>
#include <QStyle>
#include <QStyleFactory>

namespace {

struct RoleColours
{
    QPalette::ColorRole role;
    QRgb light;
    QRgb dark;
};

constexpr RoleColours kRoles[] = {
    {QPalette::Window, 0xFFEFEFEF, 0xFF2B2B2B},
    {QPalette::WindowText, 0xFF000000, 0xFFE6E6E6},
    {QPalette::Base, 0xFFFFFFFF, 0xFF1E1E1E},
    {QPalette::AlternateBase, 0xFFF7F7F7, 0xFF252525},
    {QPalette::Text, 0xFF000000, 0xFFE6E6E6},
    {QPalette::Button, 0xFFEFEFEF, 0xFF353535},
    {QPalette::ButtonText, 0xFF000000, 0xFFE6E6E6},
    {QPalette::BrightText, 0xFFFFFFFF, 0xFFFFFFFF},
    {QPalette::Light, 0xFFFFFFFF, 0xFF4A4A4A},
    {QPalette::Midlight, 0xFFCACACA, 0xFF404040},
    {QPalette::Mid, 0xFFB8B8B8, 0xFF232323},
    {QPalette::Dark, 0xFF9F9F9F, 0xFF191919},
    {QPalette::Shadow, 0xFF767676, 0xFF0F0F0F},
    {QPalette::Highlight, 0xFF308CC6, 0xFF2A6FA8},
    {QPalette::HighlightedText, 0xFFFFFFFF, 0xFFFFFFFF},
    {QPalette::Link, 0xFF0057AE, 0xFF6CB4EE},
    {QPalette::LinkVisited, 0xFF6B3FA0, 0xFFB79BE0},
    {QPalette::ToolTipBase, 0xFFFFFFDC, 0xFF3A3A2E},
    {QPalette::ToolTipText, 0xFF000000, 0xFFE6E6E6},
    {QPalette::PlaceholderText, 0x80000000, 0x80E6E6E6},
};

constexpr QPalette::ColorRole kDimmedRoles[] = {QPalette::WindowText, QPalette::Text,
                                                QPalette::ButtonText};
constexpr QRgb kDimmedLight = 0xFF9A9A9A;
constexpr QRgb kDimmedDark = 0xFF7A7A7A;

/// Before main(), for fonts are looked up once, when the application starts.
[[maybe_unused]] const bool kFontsAreAlike =
    qputenv("FONTCONFIG_FILE", KEST_SOURCE_DIR "/tests/support/pictures/fonts.conf");

} // namespace

GoldenLook::GoldenLook(Theme theme)
    : m_style(QApplication::style()->name())
    , m_palette(QApplication::palette())
    , m_font(QApplication::font())
    , m_flashTime(QApplication::cursorFlashTime())
{
    QApplication::setStyle(new StillStyle);
    QApplication::setPalette(palette(theme));
    QApplication::setFont(font());
    QApplication::setCursorFlashTime(0);
    if (QFontInfo(font()).family() != font().family())
        reportTestFailure(QStringLiteral("Golden images need the font DejaVu Sans "
                                         "(Debian package fonts-dejavu-core)."));
}

GoldenLook::~GoldenLook()
{
    // A style without a name was no factory's; it cannot be made again.
    if (QStyle* before = QStyleFactory::create(m_style))
        QApplication::setStyle(before);
    QApplication::setPalette(m_palette);
    QApplication::setFont(m_font);
    QApplication::setCursorFlashTime(m_flashTime);
}

QPalette GoldenLook::palette(Theme theme)
{
    const bool light = theme == Theme::Light;
    QPalette palette;
    for (const RoleColours& entry : kRoles)
        palette.setColor(entry.role, QColor::fromRgba(light ? entry.light : entry.dark));
    for (const QPalette::ColorRole role : kDimmedRoles)
        palette.setColor(QPalette::Disabled, role, QColor(light ? kDimmedLight : kDimmedDark));
    return palette;
}

QFont GoldenLook::font()
{
    QFont font(QStringLiteral("DejaVu Sans"), 9);
    // Hinting and subpixel colours follow the machine's font settings; without them images are
    // alike.
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(
        static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    return font;
}

QString GoldenLook::suffix(Theme theme)
{
    return theme == Theme::Light ? QStringLiteral("light") : QStringLiteral("dark");
}
