// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace Client {

/// \brief A file that appears under its name whole or not at all.
///
/// It is written under a temporary name in the same folder and renamed when it is complete, so that
/// no half file is ever taken for a whole one and an earlier file stays until then. A link keeps
/// pointing where it does: the file behind it is replaced.
class CExportTarget
{
public:
    CExportTarget() = default;
    ~CExportTarget(); ///< Discards what was not committed.
    CExportTarget(const CExportTarget &) = delete;
    CExportTarget &operator=(const CExportTarget &) = delete;

    /// \brief Make the temporary file for \a path, empty.
    /// \return false when nothing can be written there; Error() says why.
    [[nodiscard]] bool Open(const QString &path);
    /// \brief Where to write until Commit().
    [[nodiscard]] QString TemporaryPath() const { return temporary_; }
    /// \brief Give the file, closed by now, its name.
    /// \return false when that fails; an earlier file is then as it was.
    [[nodiscard]] bool Commit();
    /// \brief Remove the temporary file, unless it has its name already.
    void Discard();

    /// \brief What went wrong, for the user.
    [[nodiscard]] QString Error() const { return error_; }

private:
    [[nodiscard]] bool Fail(const QString &error);
    [[nodiscard]] bool CheckTarget();
    [[nodiscard]] bool MakeTemporary();

    QString target_;
    QString temporary_;
    QString error_;
};

} // namespace Client
