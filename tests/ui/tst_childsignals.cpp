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
#include <QtCore/QTranslator>
#include <QtWidgets/QTreeView>

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

class CCapitals : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *text, const char *, int) const override
    {
        return QString(text).toUpper() + '.';
    }
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

struct Widget
{
    const char *name;
    QWidget *(*make)();
    QWidget *(*make_base)() = [] { return new QWidget; }; // Qt's own connections are right
};

template <class Type> QWidget *Make()
{
    return new Type;
}

template <> QWidget *Make<Ravel::CChaseDialog>()
{
    return new Ravel::CChaseDialog(nullptr, QString(), "Wait", true);
}

} // namespace

class TestChildSignals : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void noneReachesAWidgetWithoutItsPrivateData_data()
    {
        AddRows<Widget>({
            {"CAccountPasswordWidget", Make<CAccountPasswordWidget>},
            {"CAdaptiveColumnWidthWidget", Make<CAdaptiveColumnWidthWidget>},
            {"CAnimationProgressBar", Make<CAnimationProgressBar>},
            {"CBaseDockFrame", Make<CBaseDockFrame>},
            {"CBaseFileProgressBar", Make<CBaseFileProgressBar>},
            {"CChaseDialog", Make<Ravel::CChaseDialog>},
            {"CComboBoxEx", Make<CComboBoxEx>, Make<QComboBox>},
            {"CCustomPasswordFrame", Make<CCustomPasswordFrame>},
            {"CCustomizeColumnButton", Make<CCustomizeColumnButton>},
            {"CCustomizeColumnWidget", Make<CCustomizeColumnWidget>},
            {"CDockWidget", Make<CDockWidget>},
            {"CFilterTreeViewEx", Make<CFilterTreeViewEx>, Make<QTreeView>},
            {"CFilterWidgetEx", Make<CFilterWidgetEx>},
            {"CGUIFullScreenWidget", Make<Faceplate::CGUIFullScreenWidget>},
            {"CItemDragMovableListView", Make<CItemDragMovableListView>, Make<QListView>},
            {"CMutiPageWidget", Make<CMutiPageWidget>},
            {"CMutiPageWidgetEx", Make<CMutiPageWidgetEx>},
            {"CPasswordFrame", Make<CPasswordFrame>},
            {"CVerifyCodeWidget", Make<CVerifyCodeWidget>},
        });
    }

    void eachFollowsTheLanguageAsAFreshOneDoes_data()
    {
        noneReachesAWidgetWithoutItsPrivateData_data();
    }

    void eachFollowsTheLanguageAsAFreshOneDoes()
    {
        guard_.AnnounceWarnings("Could not parse stylesheet");
        const auto &row = FetchRow<Widget>();
        const std::unique_ptr<QWidget> widget(row.make());
        CCapitals capitals;
        QCoreApplication::installTranslator(&capitals);
        QCoreApplication::processEvents();
        const std::unique_ptr<QWidget> fresh(row.make());
        QCOMPARE(TextsOf(*widget), TextsOf(*fresh));
        QCoreApplication::removeTranslator(&capitals);
    }

    void noneReachesAWidgetWithoutItsPrivateData()
    {
        const auto &row = FetchRow<Widget>();
        guard_.AnnounceWarnings("Could not parse stylesheet"); // of the Caps Lock tip
        Nim::Base::OS::SetCapsLockSource([] { return true; });
        CLastSignals signals_of_children;
        const QStringList allowed = signals_of_children.Of(row.make_base());

        QStringList left = signals_of_children.Of(row.make());

        for (const QString &one : allowed)
            left.removeAll(one);
        QVERIFY2(left.isEmpty(), qPrintable(left.join('\n')));
    }
};

QTEST_MAIN(TestChildSignals)
#include "tst_childsignals.moc"
