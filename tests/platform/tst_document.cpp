// SPDX-License-Identifier: MIT
#include "support/Test.h"

#include <ClientComm/RapidJsonProto.h>

using ClientComm::CRapidJsonProto;

namespace {

std::string Repeated(const std::string &text, int times)
{
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

const std::string kJson =
    "\xEF\xBB\xBF {\"R\":{\"n\":-7,\"big\":3000000000,\"half\":1.5,\"whole\":1e2,"
    "\"s\":\"12\",\"t\":true,\"z\":null,\"o\":{\"a\":1,\"b\":2},"
    "\"l\":[{\"x\":\"p\"},{\"x\":\"q\"},3],\"\xC3\xA4\":\"\\u20AC\"}}";
const std::string kXml =
    "<?xml version=\"1.0\"?><R a='b'> <n>-7</n><s>12</s><e/><o><a>1</a><b>2</b></o>"
    "<l><x>p</x></l><l><x>q&amp;<!-- -->&#x20AC;</x></l></R>\n";

// document, path, its number, text ("none": none) and count
const Rows<std::string, const char *, int, const char *, int> kValueRows = {
    {"a number", kJson, "/R/n", -7, "-7", 0},
    {"a number in a text", kJson, "/R/s", 12, "12", 0},
    {"a number beyond 32 bits", kJson, "/R/big", -1, "3000000000", 0},
    {"a fraction", kJson, "/R/half", -1, "1.5", 0},
    {"a whole number with an exponent", kJson, "/R/whole", 100, "1e2", 0},
    {"a Boolean", kJson, "/R/t", -1, "true", 0},
    {"null is nothing", kJson, "/R/z", -1, "none", 0},
    {"an object", kJson, "/R/o", -1, "none", 2},
    {"an array", kJson, "/R/l", -1, "none", 3},
    {"in an item of an array", kJson, "/R/l/1/x", -1, "q", 0},
    {"after the last item", kJson, "/R/l/3", -1, "none", 0},
    {"beyond ASCII", kJson, "/R/\xC3\xA4", -1, "\xE2\x82\xAC", 0},
    {"through a text", kJson, "/R/s/0", -1, "none", 0},
    {"the whole document", kJson, "/", -1, "none", 1},
    {"no slash in front", kJson, "R/n", -1, "none", 0},
    {"an empty part", kJson, "/R//n", -1, "none", 0},
    {"XML: a number", kXml, "/R/n", -7, "-7", 0},
    {"XML: an empty element", kXml, "/R/e", -1, "", 0},
    {"XML: children", kXml, "/R/o", -1, "none", 2},
    {"XML: elements of one name", kXml, "/R/l", -1, "none", 2},
    {"XML: the first of them", kXml, "/R/l/x", -1, "p", 0},
    {"XML: the second of them", kXml, "/R/l/1/x", -1, "q&\xE2\x82\xAC", 0},
    {"XML: missing", kXml, "/R/l/2/x", -1, "none", 0},
};

} // namespace

class TestDocument : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void valuesAreReadByPath_data() { AddRows(kValueRows); }

    void valuesAreReadByPath()
    {
        const auto &[name, text, path, number, string, count] = FetchRow(kValueRows);
        CRapidJsonProto document;
        QVERIFY(document.Load(text));

        QCOMPARE(document.GetInt(path), number);
        QCOMPARE(document.GetString(path, "none"), std::string(string));
        QCOMPARE(document.GetCount(path), count);
    }

    void whatIsNoDocumentIsRefused_data()
    {
        std::string attributes;
        for (int i = 0; i < 65; ++i)
            attributes += " a" + std::to_string(i) + "=''";
        AddRows<Row<std::string>>(
            {{"nothing", {}},
             {"blanks", " \r\n\t"},
             {"a bare value", "7"},
             {"half an object", "{\"a\":{\"b\":1}"},
             {"text after the object", "{} x"},
             {"a zero byte after the object", std::string("{}\0", 3)},
             {"two members of one name", R"({"a":1,"b":2,"a":3})"},
             {"bytes that are no UTF-8", "{\"a\":\"\xC3\x28\"}"},
             {"half a character at the end", "{\"a\":\"" + std::string(50, 'x') + "\xF4"},
             {"half a surrogate pair", R"({"a":"\ud800"})"},
             {"the second half of a pair", R"({"a":"12\udddd"})"},
             {"the second half in a name", R"({"\udc00":1})"},
             {"half an element", "<a><b></b>"},
             {"crossed elements", "<a><b></a></b>"},
             {"an entity of its own", "<!DOCTYPE a [<!ENTITY b \"c\">]><a>&b;</a>"},
             {"a document type alone", "<!DOCTYPE a><a/>"},
             {"an unknown entity", "<a>&b;</a>"},
             {"many attributes", "<a" + attributes + "/>"},
             {"a long name", "<" + std::string(1025, 'a') + "/>"},
             {"a million nested arrays", "{\"a\":" + std::string(1'000'000, '[')},
             {"a million nested elements", Repeated("<a>", 1'000'000)},
             {"too many elements", "<a>" + Repeated("<b/>", 1'000'001) + "</a>"},
             {"too many items", "[" + Repeated("0,", 1'000'001) + "0]"},
             {"one level too deep", Repeated("[", 1025) + Repeated("]", 1025)},
             {"too long", "{\"a\":\"" + std::string(CRapidJsonProto::kMaximumBytes, 'x') + "\"}"}});
    }

    void whatIsNoDocumentIsRefused()
    {
        const auto &[name, text] = FetchRow<Row<std::string>>();
        CRapidJsonProto document;
        QVERIFY(document.SetString("/a", "kept from before"));

        QVERIFY(!document.Load(text));

        QCOMPARE(document.GetCount("/"), 0);
        QVERIFY(document.SetString("/a/b", "usable again"));
    }

    void whatWasSetIsWrittenAndReadBack()
    {
        CRapidJsonProto document;
        const std::string odd = "\"\\ <&>\t\n\r\xE2\x82\xAC%s";
        QVERIFY(document.SetString("/Request/UserName", "x"));
        QVERIFY(document.SetString("/Request/Type", "0"));
        QVERIFY(document.SetString("/Request/UserName", odd));
        const std::string too_long = "/" + std::string(CRapidJsonProto::kMaximumNameBytes + 1, 'a');
        for (const auto &path :
             {"/Request", "/Request/Type/deeper", "Request", "/", too_long.c_str()})
            QVERIFY(!document.SetString(path, "refused"));

        QCOMPARE(document.ToXml(),
                 std::string("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Request><UserName>"
                             "&quot;\\ &lt;&amp;&gt;\t\n&#13;\xE2\x82\xAC%s</UserName>"
                             "<Type>0</Type></Request>\n"));
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
        QVERIFY(document.Load(R"({"a":{"z":null,"t":true,"n":1.5,"l":[1,[2]]}})"));

        QVERIFY(document.SetString("/a/s", "new"));
        QVERIFY(!document.SetString("/a/l/0", "items of arrays stay"));

        QCOMPARE(document.ToJson(),
                 std::string(R"({"a":{"l":[1,[2]],"n":1.5,"s":"new","t":true,"z":null}})"));
    }

    void xmlHoldsNothingThatXmlCannot()
    {
        CRapidJsonProto document;
        QVERIFY(document.SetString("/\xC3\xA4/b", std::string("\x01x\0y\xff", 5)));
        QVERIFY(document.ToXml().find("<b>\xEF\xBF\xBDx\xEF\xBF\xBDy\xEF\xBF\xBD</b>")
                != std::string::npos);
        QVERIFY(document.SetString("/\xC3\xA4/1 b", "no name for an element"));
        QCOMPARE(document.ToXml(), std::string());
        CRapidJsonProto two;
        QVERIFY(two.SetString("/a", "1") && two.SetString("/b", "2"));
        QCOMPARE(two.ToXml(), std::string()); // two outermost elements
    }
};

QTEST_GUILESS_MAIN(TestDocument)
#include "tst_document.moc"
