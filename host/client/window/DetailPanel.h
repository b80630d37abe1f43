// SPDX-License-Identifier: MIT
#pragma once

#include <Vantor/CBaseDockFrame>

#include <QtCore/QPair>
#include <QtCore/QVector>

QT_BEGIN_NAMESPACE
class QModelIndex;
QT_END_NAMESPACE

namespace Client {

/// \brief One incident in full: each column's title above its text.
class CDetailPanel : public Vantor::CBaseDockFrame
{
    Q_OBJECT

public:
    explicit CDetailPanel(QWidget *parent);

    /// \brief Take over the row of \a index, whose model may change afterwards.
    void SetRow(const QModelIndex &index);

Q_SIGNALS:
    /// A short text for the status bar.
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
