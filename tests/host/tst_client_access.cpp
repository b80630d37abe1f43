// SPDX-License-Identifier: MIT
// Every page in every language and theme has names for screen readers, room for its texts and
// contrast.
#include "ClientSession.h"
#include "list/CsvFile.h"
#include "pages/PtzView.h"
#include "pages/ShareBar.h"

#include <Vantor/CBaseFileProgressBar>
#include <Vantor/CDockWidget>

#include <QtGui/QAccessible>

using namespace Client;

Q_DECLARE_METATYPE(Client::Theme)

namespace {

constexpr QSize kWindow(1280, 800);
constexpr double kLeastContrast = 7;

// The name that a screen reader says. Qt's own combo boxes have only their text as a name, so a
// label must name them.
QString Heard(const QAccessibleInterface &control)
{
    const auto labels = control.relations(QAccessible::Label);
    for (const auto &[label, relation] : labels) {
        if (const QString text = label->text(QAccessible::Name); !text.isEmpty())
            return text;
    }
    const QString name = control.text(QAccessible::Name);
    const bool is_value =
        control.role() == QAccessible::ComboBox && name == control.text(QAccessible::Value);
    return is_value ? QString() : name;
}

void CollectUnheard(const QAccessibleInterface &control, QStringList &faults)
{
    const QAccessible::State state = control.state();
    if (state.invisible)
        return;
    const QObject *const object = control.object();
    if (state.focusable && object && Heard(control).isEmpty())
        faults.append(QString("%1 \"%2\" in \"%3\"")
                          .arg(object->metaObject()->className(), object->objectName(),
                               object->parent() ? object->parent()->objectName() : QString()));
    const auto role = control.role();
    if (role == QAccessible::Table || role == QAccessible::Tree || role == QAccessible::List)
        return; // cells say their texts
    for (int i = 0; i < control.childCount(); ++i) {
        if (const QAccessibleInterface *const child = control.child(i))
            CollectUnheard(*child, faults);
    }
}

bool IsCut(const QLabel &label)
{
    if (label.text().isEmpty())
        return false;
    return label.wordWrap() ? label.height() < label.heightForWidth(label.width())
                            : label.width() < label.minimumSizeHint().width();
}

bool IsCut(const QAbstractButton &button)
{
    return button.width() < button.fontMetrics().size(Qt::TextShowMnemonic, button.text()).width();
}

template <class Widget> void CollectCut(const QWidget &window, QStringList &faults)
{
    const auto widgets = window.findChildren<Widget *>();
    for (const Widget *const widget : widgets) {
        if (widget->isVisible() && IsCut(*widget))
            faults.append(widget->objectName() + ": " + widget->text());
    }
}

double Luminance(const QColor &colour)
{
    const auto part = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF())
           + 0.0722 * part(colour.blueF());
}

// As WCAG 2.1 defines it, from 1 to 21.
double Contrast(const QColor &a, const QColor &b)
{
    const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

QColor Value(const QString &rule, const QString &property)
{
    const QRegularExpression pattern("(?:^|[\\s;])" + property + ":\\s*(#[0-9A-Fa-f]{6})");
    return QColor(pattern.match(rule).captured(1));
}

} // namespace

class TestClientAccess : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override
    {
        guard_.AnnounceWarnings("Could not parse stylesheet"); // of the login page
        language_.Apply("en");
        theme_.Apply(Theme::Light);
        window_ = std::make_unique<CMainWindow>(theme_, language_);
        window_->resize(kWindow);
        window_->SetList(ReadCsvFile(Options().ListPath()).list, "incidents.csv");
        window_->show();
    }

    void TearDown() override { window_.reset(); }

    void Show(const QString &page)
    {
        QVERIFY(window_->Pages().Show(page));
        window_->Pages().PrepareForPicture();
        for (int round = 0; round < 4; ++round) // layouts follow texts, and other layouts
            QApplication::processEvents();
        const auto is_whole = [this] {
            QStringList cut;
            CollectCut<QLabel>(*window_, cut);
            return cut.isEmpty();
        };
        (void)QTest::qWaitFor(is_whole); // a page that loads sets texts later
    }

    CThemeSwitch theme_;
    CLanguageSwitch language_;
    std::unique_ptr<CMainWindow> window_;

private Q_SLOTS:
    void whatIsPaintedIsDescribed()
    {
        const QStringList pages = CPages::Names();
        for (const QString &page : pages)
            Show(page);
        const auto heard = [](QWidget *widget, QAccessible::Text kind) {
            return QAccessible::queryAccessibleInterface(widget)->text(kind);
        };
        auto *const share = window_->findChild<CShareBar *>();
        share->SetShare(0.25);
        QCOMPARE(heard(share, QAccessible::Value), QString("25%"));
        auto *const view = window_->findChild<CPtzView *>();
        QVERIFY(heard(view, QAccessible::Description).contains("Zoom"));

        auto *const line = window_->findChild<Vantor::CBaseFileProgressBar *>();
        QVERIFY(heard(line, QAccessible::Description).contains("Start: "));
        line->SetFiles({}, false);
        QCOMPARE(heard(line, QAccessible::Description), QString());
    }

    void controlsAreHeardAndNothingIsCut_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<Theme>("theme");
        for (const Language &language : kLanguages) {
            for (const Theme theme : kThemes)
                QTest::addRow("%s %s", language.code, qPrintable(ThemeName(theme)))
                    << QString(language.code) << theme;
        }
    }

    void controlsAreHeardAndNothingIsCut()
    {
        QFETCH(QString, language);
        QFETCH(Theme, theme);
        language_.Apply(language);
        theme_.Apply(theme);
        QStringList faults;
        const QStringList pages = CPages::Names();
        for (const QString &page : pages) {
            Show(page);
            faults.append(page + ':');
            const int before = faults.size();
            if (window_->size() != kWindow)
                faults.append(QString("the window has grown: %1 x %2")
                                  .arg(window_->width())
                                  .arg(window_->height()));
            CollectCut<QLabel>(*window_, faults);
            CollectCut<QAbstractButton>(*window_, faults);
            CollectUnheard(*QAccessible::queryAccessibleInterface(window_.get()), faults);
            if (faults.size() == before)
                faults.removeLast();
        }
        Show("list");
        const auto actions = window_->findChildren<QAction *>();
        for (QAction *const action : actions) {
            if (action->shortcut() == QKeySequence("Ctrl+Alt+E"))
                action->trigger(); // a docked panel
        }
        auto *const panel = window_->findChild<Vantor::CDockWidget *>();
        QVERIFY(panel && panel->isVisible());
        CollectUnheard(*QAccessible::queryAccessibleInterface(panel), faults);
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join('\n')));
    }

    void eachTextOfTheHighContrastThemeStandsOut()
    {
        QFile file(":/Vantor/Themes/contrast.qss");
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString sheet = file.readAll();
        QVector<QColor> backgrounds;
        for (const char *const name : {"BackColor", "PanelColor", "WidgetColor", "BackColorT2",
                                       "PanelColorT2", "WidgetColorT2"})
            backgrounds.append(Value(sheet, QString("qproperty-") + name));
        QStringList faults;
        static const QRegularExpression rules("([^{}]+)\\{([^{}]*)\\}");
        auto rule = rules.globalMatch(sheet);
        while (rule.hasNext()) {
            const auto match = rule.next();
            const QString body = match.captured(2);
            const QColor behind = Value(body, "background-color");
            const QColor selected = Value(body, "selection-background-color");
            const std::pair<QColor, QVector<QColor>> texts[] = {
                {Value(body, "color"), behind.isValid() ? QVector{behind} : backgrounds},
                {Value(body, "selection-color"), {selected}},
                {Value(body, "qproperty-TextNeuColor"), backgrounds},
                {Value(body, "qproperty-TextNeuColorT2"), backgrounds},
            };
            for (const auto &[text, all_behind] : texts) {
                for (const QColor &colour : all_behind) {
                    if (text.isValid() && Contrast(text, colour) < kLeastContrast)
                        faults.append(match.captured(1).simplified() + ' ' + text.name() + " on "
                                      + colour.name());
                }
            }
        }
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join('\n')));
    }
};

QTEST_MAIN(TestClientAccess)
#include "tst_client_access.moc"
