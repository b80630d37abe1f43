// SPDX-License-Identifier: MIT
#include "support/Widgets.h"

#include <BusinessCommon/NetCommManager.h>
#include <ErrorText/ErrorText.h>
#include <Faceplate/GUIMessageTipManager.h>
#include <Faceplate/NewInfoDlg.h>

using namespace Faceplate;

namespace {

QList<QWidget *> Popups()
{
    QList<QWidget *> popups;
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget *const window : windows) {
        if (window->objectName() == "InfoTip" && window->isVisible())
            popups.append(window);
    }
    return popups;
}

} // namespace

class TestFaceplate : public CGuardedTest
{
    Q_OBJECT

    void TearDown() override
    {
        CGUIMessageTipManager::SetPresenter(nullptr);
        CNewInfoDlg::SetPresenter(nullptr);
        ErrorText::SetSource(nullptr);
    }

private Q_SLOTS:
    void aWidgetHasOneTipInsideItself()
    {
        QWidget window;
        window.resize(300, 200);
        window.show();
        CGUIMessageTipManager::ShowMessage(&window, "first", 1, 1, 15);
        CGUIMessageTipManager::ShowMessage(&window, QString("<b>long</b> ").repeated(8), 1, 1, 15);

        const auto tips = window.findChildren<QFrame *>("MessageTip");
        QCOMPARE(tips.size(), 1);
        QFrame *const tip = tips.first();
        QVERIFY(tip->isVisible() && !tip->isWindow());
        QVERIFY(tip->findChild<QLabel *>()->text().contains("<b>")); // plain text
        QVERIFY(window.rect().contains(tip->geometry()));
        window.resize(900, 200);
        QVERIFY(window.rect().contains(tip->geometry()));
        QVERIFY(qAbs(tip->geometry().center().x() - 450) <= 1);
        QTest::mouseClick(tip, Qt::LeftButton);
        QVERIFY(!tip->isVisible());
        CGUIMessageTipManager::ShowMessage(&window, "again", 0, 0, 20);
        QTest::qWait(50); // seconds, not milliseconds
        QVERIFY(tip->isVisible());
        CGUIMessageTipManager::ShowMessage(&window, QString(), 0, 0, 0);
        QVERIFY(!tip->isVisible());
        CGUIMessageTipManager::ShowMessage(nullptr, "nowhere", 1, 1, 1);
    }

    void popupsPileUpAndGoWithTheirParent()
    {
        auto parent = std::make_unique<QWidget>();
        Faceplate::CStruInfoTipsData data;
        data.parent = parent.get();
        CNewInfoDlg::ShowInformationAtScreenRightBottom_V3(data); // without a text: nothing
        QVERIFY(Popups().isEmpty());
        for (const char *const text : {"one", "two"}) {
            data.text = text;
            CNewInfoDlg::ShowInformationAtScreenRightBottom_V3(data);
        }

        const auto popups = Popups();
        QCOMPARE(popups.size(), 2);
        QVERIFY(!popups.at(0)->geometry().intersects(popups.at(1)->geometry()));
        QVERIFY(!QApplication::activeModalWidget());
        QVERIFY(popups.at(0)->windowFlags() & Qt::WindowDoesNotAcceptFocus);
        QWidget *const lowest = popups.at(popups.at(0)->y() > popups.at(1)->y() ? 0 : 1);
        const QPoint corner = lowest->geometry().bottomRight();
        QTest::mouseClick(lowest, Qt::LeftButton);
        QTRY_COMPARE(Popups().size(), 1);
        QTRY_COMPARE(Popups().constFirst()->geometry().bottomRight(), corner); // moved down
        parent.reset();
        QVERIFY(Popups().isEmpty());
    }

    void aPresenterTakesOverAndMayThrow()
    {
        QStringList shown;
        CGUIMessageTipManager::SetPresenter(
            [&shown](QWidget *, const QString &text, int kind, int place, int time_s) {
                shown.append(QString("%1 %2 %3 %4").arg(text).arg(kind).arg(place).arg(time_s));
                throw std::runtime_error("no screen");
            });
        CNewInfoDlg::SetPresenter([&shown](const Faceplate::CStruInfoTipsData &data) {
            shown.append(data.text);
            throw std::runtime_error("no screen");
        });
        Faceplate::CStruInfoTipsData data;
        data.text = "popup";

        CGUIMessageTipManager::ShowMessage(nullptr, "tip", 1, 2, 15);
        CNewInfoDlg::ShowInformationAtScreenRightBottom_V3(data);

        QCOMPARE(shown, (QStringList{"tip 1 2 15", "popup"}));
    }

    void anErrorAlwaysHasAText()
    {
        const Nim::Base::Error::ErrorCode timeout{BusinessCommon::kModuleNetwork,
                                                  BusinessCommon::kNetTimeout, 0};
        QVERIFY(ErrorText::GetErrorInfoByErrorCode(timeout).contains("does not answer"));
        ErrorText::SetSource([](const Nim::Base::Error::ErrorCode &code) -> QString {
            if (code.module_code == 9)
                throw std::runtime_error("no table");
            return code.error_code == 20 ? "own words" : QString();
        });

        QCOMPARE(ErrorText::GetErrorInfoByErrorCode(timeout), QString("own words"));
        QVERIFY(ErrorText::GetErrorInfoByErrorCode({9, 77, 0}).contains("9-77"));
        QVERIFY(!ErrorText::GetErrorInfoByErrorCode({3, 413, 0}).isEmpty());
    }
};

QTEST_MAIN(TestFaceplate)
#include "tst_faceplate.moc"
