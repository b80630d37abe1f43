// SPDX-License-Identifier: MIT
#include "look/Language.h"

#include <common/Translate.h>

#include <QtCore/QLibraryInfo>
#include <QtCore/QLocale>
#include <QtWidgets/QApplication>

namespace Client {
namespace {

const Language &FindLanguage(const QString &code)
{
    for (const Language &language : kLanguages) {
        if (code == QLatin1String(language.code))
            return language;
    }
    return kLanguages[0];
}

} // namespace

void CLanguageSwitch::Apply(const QString &code)
{
    const Language &language = FindLanguage(code);
    code_ = QLatin1String(language.code);
    QLocale::setDefault(QLocale(code_));

    Vantor::InstallTranslations(QLocale(code_));
    const QString ours = QStringLiteral(":/Vantor/Translations");
    const QString qt = QLibraryInfo::location(QLibraryInfo::TranslationsPath);
    const struct
    {
        QString name;
        QString folder;
    } files[] = {{QStringLiteral("qtbase_"), qt}, {QStringLiteral("client_"), ours}};
    for (size_t i = 0; i < translators_.size(); ++i) {
        QCoreApplication::removeTranslator(&translators_[i]);
        // Qt's own texts are a separate Debian package; without it, standard buttons stay English.
        if (translators_[i].load(files[i].name + code_, files[i].folder))
            QCoreApplication::installTranslator(&translators_[i]);
    }
    // Last, because Qt sets a direction whenever a translator is installed or removed.
    QGuiApplication::setLayoutDirection(language.direction);
}

QString CLanguageSwitch::SystemCode()
{
    return QLatin1String(FindLanguage(Vantor::InstallTranslations(QLocale::system())).code);
}

QString Isolated(const QString &text)
{
    return QChar(0x2068) + text + QChar(0x2069);
}

} // namespace Client
