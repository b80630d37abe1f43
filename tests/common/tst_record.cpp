// SPDX-License-Identifier: MIT
#include "support/Test.h"

#include <Vantor/CRawTimeZone>
#include <common/Record.h>

#include <type_traits>

namespace {

struct Inner
{
    int number = 1;
};

class CInner : public Vantor::CRecord<Inner>
{
    VANTOR_RECORD(CInner)
    VANTOR_RECORD_FIELD(number)
};

struct Outer
{
    QString name = QStringLiteral("none");
    CInner inner;
};

class COuter : public Vantor::CRecord<Outer>
{
    VANTOR_RECORD(COuter)
    VANTOR_RECORD_FIELD(name)
    VANTOR_RECORD_FIELD(inner)
};

class CShared : public Vantor::CRecord<Inner, Vantor::SharedAssignment>
{
    VANTOR_RECORD(CShared)
    VANTOR_RECORD_FIELD(number)
};

VANTOR_RECORD_DEFINE(CInner);
VANTOR_RECORD_DEFINE(COuter);
VANTOR_RECORD_DEFINE(CShared);

static_assert(!std::is_convertible<Inner, CInner>::value, "a structure is no record by accident");

} // namespace

class TestRecord : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void copiesShareNothing()
    {
        COuter first;
        first.SetVal_name("first");
        COuter copy(first);
        COuter moved(
            std::move(copy));     // NOLINT(performance-move-const-arg): the source must stay usable
        copy.SetVal_name("copy"); // NOLINT(bugprone-use-after-move)
        moved.SetVal_name("moved");
        QCOMPARE(first.GetVal_name(), QString("first"));
        QCOMPARE(copy.GetVal_name(), QString("copy"));

        CInner taken = first.GetVal_inner();
        taken.SetVal_number(7);
        QCOMPARE(first.GetVal_inner().GetVal_number(), 1);
        first.SetVal_inner(taken);
        taken.SetVal_number(8);
        QCOMPARE(first.GetVal_inner().GetVal_number(), 7);
        QCOMPARE(copy.GetVal_inner().GetVal_number(), 1);
    }

    void assignmentFillsTheStructureThatExistsOrSharesIt()
    {
        COuter target;
        const std::shared_ptr<Outer> kept = target.GetDataPtr();
        COuter source;
        source.SetVal_name("assigned");
        target = source;
        target = *&target;
        source.SetVal_name("later");
        QCOMPARE(kept, target.GetDataPtr());
        QCOMPARE(kept->name, QString("assigned"));

        CShared first;
        const CShared copy(first);
        CShared assigned;
        assigned = first;
        first.SetVal_number(5);
        QCOMPARE(copy.GetVal_number(), 1);
        QCOMPARE(assigned.GetVal_number(), 5);

        const auto structure = std::make_shared<Inner>();
        CInner(structure).SetVal_number(3); // which adopts it
        QCOMPARE(structure->number, 3);
        QCOMPARE(CInner(std::shared_ptr<Inner>()).GetVal_number(), 1);
    }

    // A zone holds its rule by value: copying the zone copies the rule, setting the rule shares it.
    void aZoneSharesTheRuleThatIsSet()
    {
        Vantor::CDaylightSavingTime rule;
        Vantor::CRawTimeZone zone;
        const Vantor::CRawTimeZone before(zone);
        zone.SetVal_dST(rule);
        const Vantor::CRawTimeZone copy(zone);

        rule.SetVal_daylight_bias(-60);

        QCOMPARE(before.GetVal_dST().GetVal_daylight_bias(), 0);
        QCOMPARE(copy.GetVal_dST().GetVal_daylight_bias(), 0);
        QCOMPARE(zone.GetVal_dST().GetVal_daylight_bias(), -60);
        zone.GetVal_dST().SetVal_daylight_bias(-30); // on a copy
        QCOMPARE(rule.GetVal_daylight_bias(), -60);
    }
};

QTEST_GUILESS_MAIN(TestRecord)
#include "tst_record.moc"
