// SPDX-License-Identifier: MIT
#include <ClientComm/RapidJsonProto.h>

#include <QtCore/QJsonDocument>
#include <QtTest/QTest>

using ClientComm::CRapidJsonProto;

namespace {

std::string Repeated(const std::string &text, int times)
{
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

} // namespace

class TestDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void valuesAreReadByPath_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("path");
        QTest::addColumn<int>("number");
        QTest::addColumn<QByteArray>("string");
        QTest::addColumn<int>("count");
        const QByteArray json =
            "\xEF\xBB\xBF {\"R\":{\"n\":-7,\"big\":3000000000,\"half\":1.5,"
            "\"s\":\"12\",\"t\":true,\"z\":null,\"o\":{\"a\":1,\"b\":2},"
            "\"l\":[{\"x\":\"p\"},{\"x\":\"q\"},3],\"\xC3\xA4\":\"\xE2\x82\xAC\"}}";
        const QByteArray xml =
            "<?xml version=\"1.0\"?><R> <n>-7</n><s>12</s><e/><o><a>1</a><b>2</b>"
            "</o><l><x>p</x></l><l><x>q&amp;&#x20AC;</x></l></R>\n";
        const auto row = [](const char *name, const QByteArray &text, const char *path, int number,
                            const char *string, int count) {
            QTest::newRow(name) << text << QByteArray(path) << number << QByteArray(string)
                                << count;
        };
        row("a number", json, "/R/n", -7, "-7", 0);
        row("a number in a text", json, "/R/s", 12, "12", 0);
        row("a number beyond 32 bits", json, "/R/big", -1, "3000000000", 0);
        row("a fraction", json, "/R/half", -1, "1.5", 0);
        row("a Boolean", json, "/R/t", -1, "true", 0);
        row("null is nothing", json, "/R/z", -1, "none", 0);
        row("an object", json, "/R/o", -1, "none", 2);
        row("an array", json, "/R/l", -1, "none", 3);
        row("in an item of an array", json, "/R/l/1/x", -1, "q", 0);
        row("behind the last item", json, "/R/l/3", -1, "none", 0);
        row("beyond ASCII", json, "/R/\xC3\xA4", -1, "\xE2\x82\xAC", 0);
        row("missing", json, "/R/o/c", -1, "none", 0);
        row("through a text", json, "/R/s/x", -1, "none", 0);
        row("the whole document", json, "/", -1, "none", 1);
        row("no slash in front", json, "R/n", -1, "none", 0);
        row("an empty part", json, "/R//n", -1, "none", 0);
        row("XML: a number", xml, "/R/n", -7, "-7", 0);
        row("XML: an empty element", xml, "/R/e", -1, "", 0);
        row("XML: children", xml, "/R/o", -1, "none", 2);
        row("XML: elements of one name", xml, "/R/l", -1, "none", 2);
        row("XML: the first of them", xml, "/R/l/x", -1, "p", 0);
        row("XML: the second of them", xml, "/R/l/1/x", -1, "q&\xE2\x82\xAC", 0);
        row("XML: missing", xml, "/R/l/2/x", -1, "none", 0);
    }

    void valuesAreReadByPath()
    {
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, path);
        CRapidJsonProto document;

        QVERIFY(document.Load(text.toStdString()));

        QTEST(document.GetInt(path.toStdString()), "number");
        QTEST(QByteArray::fromStdString(document.GetString(path.toStdString(), "none")), "string");
        QTEST(document.GetCount(path.toStdString()), "count");
    }

    void whatIsNoDocumentIsRefused_data()
    {
        QTest::addColumn<QByteArray>("text");
        const std::string deep_json = "{\"a\":" + std::string(1'000'000, '[');
        const std::string deep_xml = Repeated("<a>", 1'000'000);
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("blanks") << QByteArray(" \r\n\t");
        QTest::newRow("a bare value") << QByteArray("7");
        QTest::newRow("half an object") << QByteArray("{\"a\":{\"b\":1}");
        QTest::newRow("text behind the object") << QByteArray("{} x");
        QTest::newRow("bytes that are no UTF-8") << QByteArray("{\"a\":\"\xC3\x28\"}");
        QTest::newRow("half an element") << QByteArray("<a><b></b>");
        QTest::newRow("crossed elements") << QByteArray("<a><b></a></b>");
        QTest::newRow("an entity of its own")
            << QByteArray("<!DOCTYPE a [<!ENTITY b \"c\">]><a>&b;</a>");
        QTest::newRow("an external entity")
            << QByteArray("<!DOCTYPE a [<!ENTITY b SYSTEM \"file:///etc/passwd\">]><a>&b;</a>");
        QTest::newRow("an unknown entity") << QByteArray("<a>&b;</a>");
        QTest::newRow("a million nested arrays") << QByteArray::fromStdString(deep_json);
        QTest::newRow("a million nested elements") << QByteArray::fromStdString(deep_xml);
        QTest::newRow("too many elements")
            << QByteArray::fromStdString("<a>" + Repeated("<b/>", 1'000'001) + "</a>");
        QTest::newRow("too long") << "{\"a\":\""
                                         + QByteArray(int(CRapidJsonProto::kMaximumBytes), 'x')
                                         + "\"}";
    }

    void whatIsNoDocumentIsRefused()
    {
        QFETCH(QByteArray, text);
        CRapidJsonProto document;
        QVERIFY(document.SetString("/a", "kept from before"));

        QVERIFY(!document.Load(text.toStdString()));

        QCOMPARE(document.GetCount("/"), 0);
        QVERIFY(document.SetString("/a/b", "usable again"));
    }

    void whatWasSetIsWrittenAndReadBack()
    {
        CRapidJsonProto document;
        const std::string odd = "\"\\ <&>\t\n\xE2\x82\xAC%s";

        QVERIFY(document.SetString("/Request/UserName", "x"));
        QVERIFY(document.SetString("/Request/Type", "0"));
        QVERIFY(document.SetString("/Request/UserName", odd));
        QVERIFY(!document.SetString("/Request", "a text where there are members"));
        QVERIFY(!document.SetString("/Request/Type/deeper", "members where there is a text"));
        QVERIFY(!document.SetString("Request", "no path"));
        QVERIFY(!document.SetString("/", "no name"));

        QCOMPARE(
            document.ToXml(),
            std::string("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Request><UserName>&quot;\\ "
                        "&lt;&amp;&gt;\t\n\xE2\x82\xAC%s</UserName><Type>0</Type></Request>\n"));
        for (const std::string &text : {document.ToXml(), document.ToJson()}) {
            CRapidJsonProto copy;
            QVERIFY(copy.Load(text));
            QCOMPARE(copy.GetString("/Request/UserName"), odd);
            QCOMPARE(copy.GetInt("/Request/Type"), 0);
        }
    }

    void aLoadedDocumentIsChangedInPlace()
    {
        CRapidJsonProto document;
        QVERIFY(document.Load("{\"a\":{\"n\":1.5,\"t\":true,\"z\":null,\"l\":[1,[2]]}}"));

        QVERIFY(document.SetString("/a/s", "new"));

        QCOMPARE(QJsonDocument::fromJson(QByteArray::fromStdString(document.ToJson())),
                 QJsonDocument::fromJson(
                     "{\"a\":{\"n\":1.5,\"t\":true,\"z\":null,\"l\":[1,[2]],\"s\":\"new\"}}"));
        QVERIFY(!document.SetString("/a/l/0", "items of arrays stay"));
    }

    void xmlHoldsNothingThatXmlCannot()
    {
        CRapidJsonProto document;
        QVERIFY(document.SetString("/a/b", std::string("\x01x\0y", 4)));

        QVERIFY(document.ToXml().find("\xEF\xBF\xBDx\xEF\xBF\xBDy") != std::string::npos);

        QVERIFY(document.SetString("/a/1 b", "no name for an element"));
        QCOMPARE(document.ToXml(), std::string());
        CRapidJsonProto two;
        QVERIFY(two.SetString("/a", "1") && two.SetString("/b", "2"));
        QCOMPARE(two.ToXml(), std::string()); // two outermost elements
    }
};

QTEST_GUILESS_MAIN(TestDocument)
#include "tst_document.moc"
