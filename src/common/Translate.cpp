// SPDX-License-Identifier: MIT
#include "common/Translate.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtCore/QThread>
#include <QtCore/QTranslator>
#include <QtGui/QGuiApplication>

#include <algorithm>
#include <iterator>

// A program may load the library late, and then this file's start may come before the texts'.
static void AddTexts()
{
    Q_INIT_RESOURCE(vantor_translations);
}

namespace Vantor {
namespace {

// Made by CMake from the list of languages.
constexpr const char *kLanguages[] = {VANTOR_LANGUAGES};

bool g_are_translations_wanted = true;

// The library's translator of this application object, which owns it.
QPointer<QTranslator> &Installed()
{
    static auto *const translator = new QPointer<QTranslator>;
    return *translator;
}

// The language for `wanted`, or an empty text if we have no texts in it.
QString LanguageFor(const QLocale &wanted)
{
    const auto find = [](const QString &code) {
        const bool is_there =
            std::any_of(std::begin(kLanguages), std::end(kLanguages),
                        [&](const char *known) { return code == QLatin1String(known); });
        return is_there ? code : QString();
    };
    // Singapore writes what China writes, but Taiwan does not.
    if (wanted.language() == QLocale::Chinese)
        return wanted.script() == QLocale::SimplifiedHanScript ? find(QStringLiteral("zh_CN"))
                                                               : find(wanted.name());
    const QString with_country = find(wanted.name());
    return with_country.isEmpty() ? find(wanted.name().section(QLatin1Char('_'), 0, 0))
                                  : with_country;
}

// The first of the user's languages that the library has.
QString BestLanguage(const QLocale &locale)
{
    QString language = LanguageFor(locale);
    if (!language.isEmpty())
        return language;
    const QStringList wanted = locale.uiLanguages();
    for (const QString &name : wanted) {
        language = LanguageFor(QLocale(name));
        if (!language.isEmpty())
            return language;
    }
    return QStringLiteral("en");
}

// The user's language, unless the host has chosen one meanwhile.
void InstallFirst()
{
    if (g_are_translations_wanted && !Installed())
        InstallTranslations();
}

// Runs where the library is loaded, which a program may leave to another thread.
void InstallAtStart()
{
    QCoreApplication *const application = QCoreApplication::instance();
    if (application->thread() == QThread::currentThread())
        InstallFirst();
    else
        QMetaObject::invokeMethod(application, &InstallFirst, Qt::QueuedConnection);
}

// Qt sets a direction of its own whenever a translator comes or goes. The host's stays.
class CDirectionKeeper
{
public:
    ~CDirectionKeeper()
    {
        if (qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
            QGuiApplication::setLayoutDirection(direction_);
    }

private:
    const Qt::LayoutDirection direction_ = QGuiApplication::layoutDirection();
};

} // namespace

Q_COREAPP_STARTUP_FUNCTION(InstallAtStart)

QString Translate(const QString &key, const char *context)
{
    if (key.isEmpty())
        return {};
    const QByteArray source = key.toUtf8();
    for (const char *const place : {context, "SimpleMutiPageWidgetUi", "Vantor"}) {
        if (!place)
            continue;
        try {
            QString text = QCoreApplication::translate(place, source.constData());
            if (text != key)
                return text;
        } catch (...) { // a host's translator threw: ask the next context
        }
    }
    return key;
}

QString FillArgument(const QString &text, const QString &argument)
{
    QString filled = text;
    return filled.replace(QLatin1String("%1"), argument);
}

QString InstallTranslations(const QLocale &locale)
{
    g_are_translations_wanted = true;
    QString language = BestLanguage(locale);
    QCoreApplication *const application = QCoreApplication::instance();
    if (!application)
        return language;
    AddTexts();
    const QString file = QStringLiteral(":/Vantor/Translations/vantor_%1.qm").arg(language);
    QTranslator *const before = Installed();
    if (before && before->filePath() == file)
        return language;
    const CDirectionKeeper keeper;
    auto *const translator = new QTranslator(application);
    Installed() = translator;
    // The language before goes last, so that no widget ever asks and gets a key.
    if (translator->load(file))
        QCoreApplication::installTranslator(translator);
    delete before; // uninstalls it
    return language;
}

void RemoveTranslations()
{
    g_are_translations_wanted = false;
    const CDirectionKeeper keeper;
    delete Installed().data(); // uninstalls it
}

} // namespace Vantor
