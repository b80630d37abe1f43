// SPDX-License-Identifier: MIT
#include "look/Theme.h"

#include <Vantor/CStyleManager>

#include <QtCore/QFile>
#include <QtGui/QPainter>
#include <QtGui/QPalette>
#include <QtSvg/QSvgRenderer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QProxyStyle>

namespace Client {
namespace {

constexpr int kIconSidePx = 20;
constexpr int kFontPoints = 10;

Vantor::CStyleManager &Manager()
{
    return Nim::Base::CSingleton<Vantor::CStyleManager>::Instance();
}

QByteArray ReadResource(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Leaves the underline of accelerators out in Arabic: Qt 5 draws the letter apart from its
// neighbours, so words of its own dialogs and menus fall to pieces. Keys work all the same, and our
// texts name theirs, as in "(F)".
class CStyle : public QProxyStyle
{
public:
    using QProxyStyle::QProxyStyle;

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *data) const override
    {
        return hint == SH_UnderlineShortcut && QGuiApplication::isRightToLeft()
                   ? 0
                   : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

// For texts that a style sheet does not reach: those of file dialogs, links, disabled texts.
QPalette MakePalette(const Vantor::CStyleManager &colours)
{
    QPalette palette;
    palette.setColor(QPalette::Window, colours.BackColor());
    palette.setColor(QPalette::Base, colours.PanelColor());
    palette.setColor(QPalette::AlternateBase, colours.PanelColorT2());
    palette.setColor(QPalette::Button, colours.WidgetColor());
    palette.setColor(QPalette::ToolTipBase, colours.WidgetColorT2());
    palette.setColor(QPalette::Highlight, colours.BrandColor());
    palette.setColor(QPalette::Link, colours.BrandColor());
    palette.setColor(QPalette::HighlightedText, colours.PanelColor());
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, colours.TextNeuColor());
        palette.setColor(QPalette::Disabled, role, colours.TextNeuColorT2());
    }
    palette.setColor(QPalette::PlaceholderText, colours.TextNeuColorT2());
    return palette;
}

} // namespace

QString ThemeName(Theme theme)
{
    switch (theme) {
    case Theme::Light:
        return QStringLiteral("light");
    case Theme::Dark:
        return QStringLiteral("dark");
    case Theme::Contrast:
        return QStringLiteral("contrast");
    }
    return {};
}

Theme ThemeOf(const QString &name)
{
    for (const Theme theme : kThemes) {
        if (name == ThemeName(theme))
            return theme;
    }
    return Theme::Light;
}

CThemeSwitch::CThemeSwitch(QObject *parent) : QObject(parent)
{
    QApplication::setStyle(new CStyle(QStringLiteral("Fusion")));
    QFont font;
    font.setFamilies({QStringLiteral("Segoe UI"), QStringLiteral("Noto Sans"),
                      QStringLiteral("DejaVu Sans"), QStringLiteral("sans-serif")});
    font.setPointSize(kFontPoints);
    QApplication::setFont(font);
    qApp->installEventFilter(this);
}

// A style sheet gives the colour of the text to the placeholder too (Qt 5.15), each time that it is
// applied to an entry.
bool CThemeSwitch::eventFilter(QObject *watched, QEvent *event)
{
    auto *const edit = event->type() == QEvent::Show || event->type() == QEvent::StyleChange
                           ? qobject_cast<QLineEdit *>(watched)
                           : nullptr;
    if (edit) {
        QPalette palette = edit->palette();
        palette.setColor(QPalette::PlaceholderText, Manager().TextNeuColorT2());
        edit->setPalette(palette);
    }
    return QObject::eventFilter(watched, event);
}

void CThemeSwitch::Apply(Theme theme)
{
    theme_ = theme;
    const QString path = QStringLiteral(":/Vantor/Themes/%1.qss").arg(ThemeName(theme));
    const QString sheet = QString::fromUtf8(ReadResource(path));
    // The palette comes first, because polishing for the style sheet copies its colours into the
    // widgets. The palette's colours are defined in the sheet.
    Vantor::CStyleManager sample;
    sample.setStyleSheet(sheet);
    sample.ensurePolished();
    QApplication::setPalette(MakePalette(sample));
    qApp->setStyleSheet(sheet);
    // Qt polishes the manager again for later sheets only if a sheet was set when it was created.
    Vantor::CStyleManager &manager = Manager();
    manager.style()->unpolish(&manager);
    manager.style()->polish(&manager);
    Q_EMIT SignalThemeChanged();
}

QIcon CThemeSwitch::Icon(const QString &name)
{
    QByteArray picture = ReadResource(QStringLiteral(":/Vantor/Icons/%1.svg").arg(name));
    picture.replace("currentColor", Manager().TextNeuColor().name().toLatin1());
    QSvgRenderer renderer(picture);
    QIcon icon;
    for (const int scale : {1, 2, 3}) {
        QPixmap pixmap(kIconSidePx * scale, kIconSidePx * scale);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        renderer.render(&painter);
        painter.end();
        pixmap.setDevicePixelRatio(scale);
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace Client
