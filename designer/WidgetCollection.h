// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

namespace Vantor {

struct WidgetEntry;

/// \brief The widgets of the library that can be put into a form.
class CWidgetCollection : public QObject, public QDesignerCustomWidgetCollectionInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QDesignerCustomWidgetCollectionInterface_iid)
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

public:
    explicit CWidgetCollection(QObject *parent = nullptr);

    [[nodiscard]] QList<QDesignerCustomWidgetInterface *> customWidgets() const override
    {
        return widgets_;
    }

private:
    template <class Widget> void Add(const WidgetEntry &entry);

    QList<QDesignerCustomWidgetInterface *> widgets_; // children
};

} // namespace Vantor
