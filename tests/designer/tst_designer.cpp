// SPDX-License-Identifier: MIT
#include "support/Test.h"
#include "ui_form.h"

#include <QtCore/QMetaProperty>
#include <QtCore/QPluginLoader>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <QtUiTools/QUiLoader>

namespace {

QList<QDesignerCustomWidgetInterface *> Entries()
{
    QPluginLoader plugin(PLUGIN);
    const auto *const collection =
        qobject_cast<QDesignerCustomWidgetCollectionInterface *>(plugin.instance());
    return collection ? collection->customWidgets() : QList<QDesignerCustomWidgetInterface *>();
}

// The properties that our classes add to Qt's, by their names.
QMap<QByteArray, QVariant> OwnProperties(const QWidget &widget)
{
    QMap<QByteArray, QVariant> values;
    const QMetaObject *type = widget.metaObject();
    for (; QByteArray(type->className()).startsWith("Vantor::"); type = type->superClass()) {
        for (int i = type->propertyOffset(); i < type->propertyCount(); ++i) {
            const QMetaProperty property = type->property(i);
            if (property.isWritable() && property.isDesignable())
                values.insert(property.name(), property.read(&widget));
        }
    }
    return values;
}

} // namespace

class TestDesigner : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override
    {
        guard_.AnnounceWarnings("Could not parse stylesheet"); // of the Caps Lock tips
    }

private Q_SLOTS:
    void everyWidgetIsDescribedToDesigner()
    {
        const auto entries = Entries();
        QCOMPARE(entries.size(), 17);
        for (QDesignerCustomWidgetInterface *const entry : entries) {
            const std::unique_ptr<QWidget> widget(entry->createWidget(nullptr));
            QCOMPARE(QString(widget->metaObject()->className()), entry->name());
            QVERIFY2(entry->group().startsWith("Vantor: "), qPrintable(entry->name()));
            QVERIFY2(!entry->icon().pixmap(24).isNull(), qPrintable(entry->name()));
            QVERIFY2(!entry->toolTip().isEmpty(), qPrintable(entry->name()));
            QVERIFY2(widget->sizeHint().width() > 8 && widget->sizeHint().height() > 8,
                     qPrintable(entry->name()));
            // Themes find the widgets that name themselves by that name.
            if (!widget->objectName().isEmpty())
                QVERIFY(entry->domXml().contains("name=\"" + widget->objectName() + "\""));
        }
    }

    void aFormIsTheSameLoadedAndCompiled()
    {
        QUiLoader loader;
        loader.clearPluginPaths();
        loader.addPluginPath(QFileInfo(PLUGIN).path());
        QFile file(FORM);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const std::unique_ptr<QWidget> loaded(loader.load(&file));
        QVERIFY2(loaded, qPrintable(loader.errorString()));
        QWidget compiled;
        Ui::Form().setupUi(&compiled);

        const auto entries = Entries();
        for (QDesignerCustomWidgetInterface *const entry : entries) {
            const QString name = entry->name().section("::", 1);
            const std::unique_ptr<QWidget> fresh(entry->createWidget(nullptr));
            const auto *const first = loaded->findChild<QWidget *>(name);
            const auto *const second = compiled.findChild<QWidget *>(name);
            QVERIFY2(first && second, qPrintable(name));
            QCOMPARE(first->metaObject()->className(), fresh->metaObject()->className());
            const auto at_first = OwnProperties(*fresh);
            const auto set = OwnProperties(*first);
            QCOMPARE(set, OwnProperties(*second));
            // The form gives each property another value than it has at first; the recordings'
            // time line inherits all but one from the bare one, where they are set.
            const bool sets_all = name != "CBaseFileProgressBar";
            for (auto i = set.begin(); sets_all && i != set.end(); ++i)
                QVERIFY2(i.value() != at_first.value(i.key()), qPrintable(name + '.' + i.key()));
        }
    }
};

QTEST_MAIN(TestDesigner)
#include "tst_designer.moc"
