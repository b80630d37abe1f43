// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QStringList>

QT_BEGIN_NAMESPACE
class QAbstractItemModel;
QT_END_NAMESPACE

namespace Vantor {

// One collected line of `fields`; `guarded` puts an apostrophe before what may be a formula.
QString JoinFields(const QStringList &fields, bool guarded, bool rfc4180);

// The horizontal headers of `model` as text.
QStringList HeaderTexts(const QAbstractItemModel &model);

// Appends a line for each row of `model` to `lines`.
void CollectRows(QStringList &lines, const QAbstractItemModel &model, bool rfc4180);

} // namespace Vantor
