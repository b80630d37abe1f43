// SPDX-License-Identifier: MIT
#include <Vantor/CCSVParser>
#include <Vantor/CStyleManager>

#include <QtCore/QFile>
#include <QtWidgets/QApplication>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    app.setStyleSheet("Vantor--CStyleManager { qproperty-BrandColor: #2F6FED; }");
    const auto &style = Nim::Base::CSingleton<Vantor::CStyleManager>::Instance();

    QFile file(app.arguments().value(1));
    Vantor::CCSVParser parser(nullptr);
    if (!parser.OpenFile(file.fileName()))
        qFatal("cannot write %s", qPrintable(file.fileName()));
    parser.AppendLine({"Door 7", "open", style.BrandColor().name()});
    parser.WriteCSVFile();
    parser.CloseFile();

    const bool is_open = file.open(QIODevice::ReadOnly);
    const QByteArray bytes = file.readAll();
    qInfo("%s: %s", argv[1], bytes.constData());
    return is_open && bytes == "\xEF\xBB\xBF\"Door 7\",\"open\",\"#2f6fed\"\r\n" ? 0 : 1;
}
