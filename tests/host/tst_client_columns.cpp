// SPDX-License-Identifier: MIT
#include "link/ServerLink.h"
#include "list/CsvFile.h"
#include "look/Language.h"
#include "look/Theme.h"
#include "support/TestGuard.h"
#include "window/MainWindow.h"

#include <Vantor/CAdaptiveColumnWidthWidget>
#include <Vantor/CCustomizeColumnButton>
#include <Vantor/CItemDragMovableListView>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QRadioButton>

#include <memory>

using namespace Client;

namespace {

bool WriteFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

// The client as it runs, with its own server.
struct Session
{
    explicit Session(const QString &list, const QString &user) : window(theme, language)
    {
        window.SetServerLink(link);
        link.Start(QString(), user);
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

    // The titles that are shown, in their order.
    QString Titles() const
    {
        QString titles;
        for (int place = 0; place < Header()->count(); ++place) {
            const int column = Header()->logicalIndex(place);
            if (!Header()->isSectionHidden(column))
                titles += Header()->model()->headerData(column, Qt::Horizontal).toString();
        }
        return titles;
    }

    // Wait for what the user chose, as far as the buttons tell.
    bool IsReady(const QString &user) const
    {
        return link.User() == user && Rows() && Rows()->isEnabled();
    }

    CThemeSwitch theme;
    CLanguageSwitch language;
    CServerLink link;
    CMainWindow window;
};

} // namespace

class TestClientColumns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(folder_.isValid());
        qputenv("XDG_DATA_HOME", folder_.path().toLocal8Bit()); // where the client's server keeps
        list_ = folder_.filePath("list.csv");
        QByteArray bytes = "A,B,C,D,E\r\n";
        for (int row = 0; row < 50; ++row)
            bytes += "a" + QByteArray::number(row) + ",b" + QByteArray::number(row % 5) + ",c"
                     + QByteArray::number(row % 2) + ',' + QByteArray(60, 'd') + ",e\r\n";
        QVERIFY(WriteFile(list_, bytes));
    }

    void init() { guard_.Begin(); }

    void cleanup()
    {
        QGuiApplication::setLayoutDirection(Qt::LeftToRight);
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void eachUserFindsTheColumnsThatHeLeft()
    {
        auto session = std::make_unique<Session>(list_, "supervisor");
        QTRY_VERIFY_WITH_TIMEOUT(session->IsReady("supervisor"), 30000); // fills its database
        QCOMPARE(session->Titles(), QString("ABCDE"));
        QCOMPARE(session->Header()->sectionSize(WidestColumn(*session)), 240);

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
        QVERIFY(session->Header()->sectionSize(WidestColumn(*session)) > 240);

        session->link.SwitchUser("visitor");
        QTRY_VERIFY(session->IsReady("visitor"));
        QTRY_COMPARE(session->Titles(), QString("ABCDE"));
        QTRY_COMPARE(session->Header()->sectionSize(WidestColumn(*session)), 240);
        session->link.SwitchUser("supervisor");
        QTRY_COMPARE(session->Titles(), QString("ADCE"));
        QTRY_VERIFY(session->Maximum()->isChecked());

        session.reset();
        session = std::make_unique<Session>(list_, "supervisor");
        QTRY_COMPARE(session->Titles(), QString("ADCE"));
        QTRY_VERIFY(session->Header()->sectionSize(WidestColumn(*session)) > 240);
        session->language.Apply("ar"); // the list is made anew from right to left
        QTRY_COMPARE(session->Header()->layoutDirection(), Qt::RightToLeft);
        QTRY_COMPARE(session->Button()->parentWidget()->x(), 0);
        QTRY_COMPARE(session->Titles(), QString("ADCE"));
    }

    void anotherListHasColumnsOfItsOwn()
    {
        Session session(list_, "visitor");
        QTRY_VERIFY_WITH_TIMEOUT(session.IsReady("visitor"), 30000);
        const QString other = folder_.filePath("other.csv");
        QVERIFY(WriteFile(other, "X,Y\r\n1,2\r\n"));

        session.window.SetList(ReadCsvFile(other).list, "other.csv");

        QCOMPARE(session.Titles(), QString("XY"));
        QTRY_COMPARE(session.Rows()->model()->rowCount(), 2); // the drop-down before has gone
        QTRY_VERIFY(session.IsReady("visitor"));
        QCOMPARE(session.Titles(), QString("XY"));
    }

private:
    static int WidestColumn(const Session &session)
    {
        const auto *const model = session.Header()->model();
        for (int column = 0; column < model->columnCount(); ++column) {
            if (model->headerData(column, Qt::Horizontal).toString() == "D")
                return column;
        }
        return -1;
    }

    CTestGuard guard_;
    QTemporaryDir folder_;
    QString list_;
};

QTEST_MAIN(TestClientColumns)
#include "tst_client_columns.moc"
