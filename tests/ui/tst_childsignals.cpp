// SPDX-License-Identifier: MIT
#include "support/Widgets.h"

#include <Faceplate/GUIFullScreenWidget.h>
#include <Nim/Base/OS.h>
#include <Ravel/ChaseDialog.h>
#include <Vantor/CAccountPasswordWidget>
#include <Vantor/CAdaptiveColumnWidthWidget>
#include <Vantor/CBaseDockFrame>
#include <Vantor/CBaseFileProgressBar>
#include <Vantor/CComboBoxEx>
#include <Vantor/CCustomPasswordFrame>
#include <Vantor/CCustomizeColumnButton>
#include <Vantor/CCustomizeColumnWidget>
#include <Vantor/CDockWidget>
#include <Vantor/CFilterTreeViewEx>
#include <Vantor/CFilterWidgetEx>
#include <Vantor/CItemDragMovableListView>
#include <Vantor/CMutiPageWidget>
#include <Vantor/CMutiPageWidgetEx>
#include <Vantor/CPasswordFrame>
#include <Vantor/CVerifyCodeWidget>

#include <QtCore/QMetaMethod>

using namespace Vantor;

namespace {

// Deletes a window and lists the signals of its children that are connected to it when ~QWidget()
// hides it. Private data is gone then.
class CLastSignals : public QObject
{
public:
    QStringList Of(QWidget *window)
    {
        window_ = window;
        window->show();
        QApplication::setActiveWindow(window);
        const auto children = window->findChildren<QWidget *>();
        for (QWidget *const child : children) {
            child->installEventFilter(this);
            if (!QApplication::focusWidget() || QApplication::focusWidget() == window)
                child->setFocus();
        }
        delete window;
        return std::exchange(signals_, {});
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (window_->metaObject() == &QWidget::staticMetaObject && watched != window_)
            List();
        return QObject::eventFilter(watched, event);
    }

private:
    void List()
    {
        const auto children = window_->findChildren<QObject *>();
        for (QObject *const child : children) {
            for (int i = 0; i < child->metaObject()->methodCount(); ++i) {
                const QMetaMethod method = child->metaObject()->method(i);
                if (method.methodType() == QMetaMethod::Signal
                    && QMetaObject::disconnect(child, i, window_, -1))
                    signals_ << child->metaObject()->className() + QString(": ") + method.name();
            }
        }
    }

    QWidget *window_ = nullptr;
    QStringList signals_;
};

// All texts of the widget and its children that a user reads or hears.
QStringList TextsOf(const QWidget &widget)
{
    QStringList texts;
    const auto all = widget.findChildren<const QWidget *>() << &widget;
    for (const QWidget *const one : all) {
        for (const char *const property : {"text", "toolTip", "placeholderText", "accessibleName"})
            texts << one->property(property).toString();
    }
    return texts;
}

using Maker = QWidget *(*)();
using Widget = Row<Maker, Maker>; // make, make_base: Qt's own connections are right

template <class Type> QWidget *Make()
{
    return new Type;
}

template <class Type, class Base = QWidget> Widget Of(const char *name)
{
    return {name, Make<Type>, Make<Base>};
}

template <> QWidget *Make<Ravel::CChaseDialog>()
{
    return new Ravel::CChaseDialog(nullptr, QString(), "Wait", true);
}

const std::vector<Widget> kWidgetRows = {
    Of<CAccountPasswordWidget>("CAccountPasswordWidget"),
    Of<CAdaptiveColumnWidthWidget>("CAdaptiveColumnWidthWidget"),
    Of<CAnimationProgressBar>("CAnimationProgressBar"),
    Of<CBaseDockFrame>("CBaseDockFrame"),
    Of<CBaseFileProgressBar>("CBaseFileProgressBar"),
    Of<Ravel::CChaseDialog>("CChaseDialog"),
    Of<CComboBoxEx, QComboBox>("CComboBoxEx"),
    Of<CCustomPasswordFrame>("CCustomPasswordFrame"),
    Of<CCustomizeColumnButton>("CCustomizeColumnButton"),
    Of<CCustomizeColumnWidget>("CCustomizeColumnWidget"),
    Of<CDockWidget>("CDockWidget"),
    Of<CFilterTreeViewEx, QTreeView>("CFilterTreeViewEx"),
    Of<CFilterWidgetEx>("CFilterWidgetEx"),
    Of<Faceplate::CGUIFullScreenWidget>("CGUIFullScreenWidget"),
    Of<CItemDragMovableListView, QListView>("CItemDragMovableListView"),
    Of<CMutiPageWidget>("CMutiPageWidget"),
    Of<CMutiPageWidgetEx>("CMutiPageWidgetEx"),
    Of<CPasswordFrame>("CPasswordFrame"),
    Of<CVerifyCodeWidget>("CVerifyCodeWidget"),
};

} // namespace

class TestChildSignals : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void noneReachesAWidgetWithoutItsPrivateData_data() { AddRows(kWidgetRows); }

    void eachFollowsTheLanguageAsAFreshOneDoes_data()
    {
        noneReachesAWidgetWithoutItsPrivateData_data();
    }

    void eachFollowsTheLanguageAsAFreshOneDoes()
    {
        guard_.AnnounceWarnings("Could not parse stylesheet");
        const Maker make = std::get<1>(FetchRow<Widget>());
        const std::unique_ptr<QWidget> widget(make());
        CTestTranslator capitals(
            [](const char *, const char *key) { return QString(key).toUpper() + '.'; });
        QCoreApplication::installTranslator(&capitals);
        QCoreApplication::processEvents();
        const std::unique_ptr<QWidget> fresh(make());
        QCOMPARE(TextsOf(*widget), TextsOf(*fresh));
        QCoreApplication::removeTranslator(&capitals);
    }

    void noneReachesAWidgetWithoutItsPrivateData()
    {
        const auto &[name, make, make_base] = FetchRow(kWidgetRows);
        guard_.AnnounceWarnings("Could not parse stylesheet"); // of the Caps Lock tip
        Nim::Base::OS::SetCapsLockSource([] { return true; });
        CLastSignals signals_of_children;
        const QStringList allowed = signals_of_children.Of(make_base());

        QStringList left = signals_of_children.Of(make());

        for (const QString &one : allowed)
            left.removeAll(one);
        QVERIFY2(left.isEmpty(), qPrintable(left.join('\n')));
    }
};

QTEST_MAIN(TestChildSignals)
#include "tst_childsignals.moc"
