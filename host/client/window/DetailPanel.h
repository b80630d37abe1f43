// SPDX-License-Identifier: MIT
#pragma once

#include <Vantor/CBaseDockFrame>

#include <QtCore/QPair>
#include <QtCore/QVector>

QT_BEGIN_NAMESPACE
class QModelIndex;
QT_END_NAMESPACE

namespace Client {

/// \brief Shows one incident in full: each text below the title of its column.
class CDetailPanel : public Vantor::CBaseDockFrame
{
    Q_OBJECT

public:
    explicit CDetailPanel(QWidget *parent);

    /// \brief Show the row of \a index. The texts are copied, so the model may change.
    void SetRow(const QModelIndex &index);

Q_SIGNALS:
    /// Emitted with a short text for the status bar.
    void SignalMessage(const QString &text);

protected:
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void OnCopy();

private:
    void Retranslate();

    QVector<QPair<QString, QString>> fields_; // title and text
};

} // namespace Client
