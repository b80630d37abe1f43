// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

namespace Server {

/// \brief A statement failed; the text is the database's.
struct DatabaseError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

/// \brief The database does not serve us now. Nothing of the transaction was stored, unless its end
/// was being confirmed when the connection was lost. Trying again later is worthwhile.
struct StoreUnavailable : DatabaseError
{
    using DatabaseError::DatabaseError;
};

/// \brief There is no connection, or it was lost.
struct StoreUnreachable : StoreUnavailable
{
    using StoreUnavailable::StoreUnavailable;
};

/// \brief The database did not answer in time, so the connection was broken off.
struct StoreSilent : StoreUnreachable
{
    using StoreUnreachable::StoreUnreachable;
};

/// \brief Others have held what the transaction needs for too long.
struct StoreBusy : StoreUnavailable
{
    using StoreUnavailable::StoreUnavailable;
};

/// \brief Another transaction got in the way; the whole transaction can be run again.
struct StoreConflict : DatabaseError
{
    using DatabaseError::DatabaseError;
};

/// \brief A statement took longer than its time limit, and was broken off.
struct StoreTimeout : DatabaseError
{
    using DatabaseError::DatabaseError;
};

/// \brief A text cannot be stored, because it holds the character U+0000.
struct UnstorableText : DatabaseError
{
    using DatabaseError::DatabaseError;
};

} // namespace Server
