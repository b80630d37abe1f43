// SPDX-License-Identifier: MIT
#include <QtGui/QImageReader>
#include <QtTest/QTest>

// Themes and widgets of clients name these paths.
class TestPictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachPathHoldsAPictureInTwoSizes_data()
    {
        QTest::addColumn<QSize>("size");
        for (const char *const path : {
                 ":/Ovrin/Tree/Images/Public/Control/Tree/HomePage",
                 ":/Ovrin/Tree/Images/Public/Control/Tree/LastPage",
                 ":/Ovrin/Tree/Images/Public/Control/Tree/NextPage",
                 ":/Ovrin/Tree/Images/Public/Control/Tree/PreviousPage",
             })
            QTest::newRow(path) << QSize(16, 16);
        for (const char *const path : {
                 ":/Ovrin/Icon/Images/Public/Icon/SepHide",
                 ":/Ovrin/Icon/Images/Public/Icon/SepShow",
             })
            QTest::newRow(path) << QSize(64, 10);
    }

    void eachPathHoldsAPictureInTwoSizes()
    {
        QFETCH(QSize, size);
        const QString path = QTest::currentDataTag();

        QImageReader normal(path + ".png");
        QImageReader doubled(path + "@2x.png");

        QCOMPARE(normal.read().size(), size);
        QCOMPARE(doubled.read().size(), size * 2);
    }
};

QTEST_GUILESS_MAIN(TestPictures)
#include "tst_pictures.moc"
