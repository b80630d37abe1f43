// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtGui/QIcon>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

namespace Vantor {

/// \brief What Qt Designer shows of a widget. Texts are Latin-1.
struct WidgetEntry
{
    const char *class_name;  ///< without "Vantor::"; the header is <Vantor/class_name>
    const char *object_name; ///< the one that themes know, where the widget names itself
    const char *group;       ///< of Designer's widget box
    const char *icon;        ///< below :/Vantor/Designer
    const char *hint;        ///< the tool tip
};

/// \brief Describes \a Widget, which has a constructor (QWidget *), to Qt Designer and QUiLoader.
template <class Widget> class CWidgetPlugin : public QObject, public QDesignerCustomWidgetInterface
{
public:
    CWidgetPlugin(const WidgetEntry &entry, QObject *parent) : QObject(parent), entry_(entry) {}

    [[nodiscard]] QString name() const override
    {
        return QStringLiteral("Vantor::") + QLatin1String(entry_.class_name);
    }
    [[nodiscard]] QString includeFile() const override
    {
        return QStringLiteral("Vantor/") + QLatin1String(entry_.class_name);
    }
    [[nodiscard]] QString group() const override { return QLatin1String(entry_.group); }
    [[nodiscard]] QString toolTip() const override { return QLatin1String(entry_.hint); }
    [[nodiscard]] QString whatsThis() const override { return toolTip(); }
    // Pixmaps, because Designer's widget box shows nothing for an icon without fixed sizes.
    [[nodiscard]] QIcon icon() const override
    {
        const QIcon drawing(
            QStringLiteral(":/Vantor/Designer/%1.svg").arg(QLatin1String(entry_.icon)));
        QIcon icon;
        for (const int side : {22, 24, 44, 48})
            icon.addPixmap(drawing.pixmap(side));
        return icon;
    }
    [[nodiscard]] bool isContainer() const override { return false; }

    // Only Designer calls it: QUiLoader does not.
    void initialize(QDesignerFormEditorInterface * /*editor*/) override { in_designer_ = true; }
    [[nodiscard]] bool isInitialized() const override { return in_designer_; }

    QWidget *createWidget(QWidget *parent) override
    {
        auto *const widget = new Widget(parent);
        // In the form that is edited, a popup is a widget like the others.
        if (in_designer_ && widget->isWindow() && parent)
            widget->setParent(parent, Qt::Widget);
        return widget;
    }

    [[nodiscard]] QString domXml() const override
    {
        return QStringLiteral(R"(<ui language="c++" displayname="%1">)"
                              R"(<widget class="%2" name="%3"/></ui>)")
            .arg(QLatin1String(entry_.class_name), name(), QLatin1String(entry_.object_name));
    }

private:
    const WidgetEntry entry_;
    bool in_designer_ = false;
};

} // namespace Vantor
