// SPDX-License-Identifier: MIT
#include "ClientSession.h"
#include "list/CsvFile.h"

#include <Vantor/CCustomizeColumnButton>
#include <Vantor/CItemDragMovableListView>

using namespace Client;

namespace {

constexpr int kGlancePx = 240; // the minimum width

struct Session : ClientSession
{
    explicit Session(const QString &list)
    {
        window.SetList(ReadCsvFile(list).list, "list.csv");
        window.resize(900, 600);
        window.show();
    }

    Vantor::CCustomizeColumnButton *Button() const
    {
        return window.findChild<Vantor::CCustomizeColumnButton *>();
    }
    Vantor::CItemDragMovableListView *Rows() const
    {
        return Button()->findChild<Vantor::CItemDragMovableListView *>();
    }
    QHeaderView *Header() const
    {
        return qobject_cast<QHeaderView *>(Button()->parentWidget()->parentWidget());
    }
    QRadioButton *Maximum() const
    {
        return window.findChild<QRadioButton *>("ptr_max_width_radio_");
    }

    QString Title(int column) const
    {
        return Header()->model()->headerData(column, Qt::Horizontal).toString();
    }

    // The titles that are shown, in their order.
    QString Titles() const
    {
        QString titles;
        for (int place = 0; place < Header()->count(); ++place) {
            const int column = Header()->logicalIndex(place);
            titles += Header()->isSectionHidden(column) ? QString() : Title(column);
        }
        return titles;
    }

    int WidthOfD() const
    {
        int column = 0;
        while (Title(column) != "D")
            ++column;
        return Header()->sectionSize(column);
    }

    // Whether the user's choice has been read.
    bool IsReady(const QString &user) const
    {
        return link.User() == user && Rows() && Rows()->isEnabled();
    }
};

} // namespace

class TestClientColumns : public CGuardedTest
{
    Q_OBJECT

protected:
    void TearDown() override { QGuiApplication::setLayoutDirection(Qt::LeftToRight); }

private Q_SLOTS:
    void eachUserFindsHisColumnsAndAnotherListHasItsOwn()
    {
        QByteArray bytes = "A,B,C,D,E\r\n";
        for (int row = 0; row < 50; ++row)
            bytes += "a" + QByteArray::number(row) + ",b" + QByteArray::number(row % 5) + ",c"
                     + QByteArray::number(row % 2) + ',' + QByteArray(60, 'd') + ",e\r\n";
        const QString list = folder_.Put("list.csv", bytes);
        auto session = std::make_unique<Session>(list);
        QVERIFY(session->Start("supervisor"));
        QTRY_VERIFY(session->IsReady("supervisor"));
        QCOMPARE(session->Titles(), QString("ABCDE"));
        QCOMPARE(session->WidthOfD(), kGlancePx);

        QTest::mouseClick(session->Button(), Qt::LeftButton);
        QTest::keyClick(session->Rows(), Qt::Key_Down);
        QTest::keyClick(session->Rows(), Qt::Key_Space);
        QTRY_COMPARE(session->Titles(), QString("ACDE"));
        QTest::keyClick(session->Rows(), Qt::Key_Down, Qt::AltModifier);
        QTest::keyClick(session->Rows(), Qt::Key_Down);
        QTest::keyClick(session->Rows(), Qt::Key_Up, Qt::AltModifier);
        QTest::keyClick(session->Rows(), Qt::Key_Up, Qt::AltModifier);
        QTRY_COMPARE(session->Titles(), QString("ADCE"));
        QTest::keyClick(session->Rows(), Qt::Key_Escape);
        QTest::keyClick(session->Maximum(), Qt::Key_Space);
        QVERIFY(session->WidthOfD() > kGlancePx);

        session->link.SwitchUser("visitor");
        QTRY_VERIFY(session->IsReady("visitor"));
        QTRY_COMPARE(session->Titles(), QString("ABCDE"));
        QTRY_COMPARE(session->WidthOfD(), kGlancePx);
        const QString other = folder_.Put("other.csv", "X,Y\r\n1,2\r\n");
        session->window.SetList(ReadCsvFile(other).list, "other.csv");
        QCOMPARE(session->Titles(), QString("XY"));
        QTRY_COMPARE(session->Rows()->model()->rowCount(), 2);

        session.reset();
        session = std::make_unique<Session>(list);
        QVERIFY(session->Start("supervisor"));
        QTRY_COMPARE(session->Titles(), QString("ADCE"));
        QTRY_VERIFY(session->Maximum()->isChecked() && session->WidthOfD() > kGlancePx);
        session->language.Apply("ar"); // builds the list again, from right to left
        QTRY_COMPARE(session->Header()->layoutDirection(), Qt::RightToLeft);
        QTRY_COMPARE(session->Titles(), QString("ADCE"));
    }

private:
    const CDataHome home_;
};

QTEST_MAIN(TestClientColumns)
#include "tst_client_columns.moc"
