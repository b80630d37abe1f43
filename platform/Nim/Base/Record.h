// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <utility>

namespace Nim::Base {

/// Assignment between records copies field by field into the record's own structure: nothing is
/// shared.
struct DeepAssignment
{
    /// \brief Copies the fields of \a from into the structure of \a to.
    template <class Structure>
    static void Assign(std::shared_ptr<Structure> &to, const std::shared_ptr<Structure> &from)
    {
        if (to != from)
            *to = *from;
    }
};

/// Assignment between records makes both use one structure. Copy construction is still deep.
struct SharedAssignment
{
    /// \brief Makes \a to share the structure of \a from.
    template <class Structure>
    static void Assign(std::shared_ptr<Structure> &to, const std::shared_ptr<Structure> &from)
    {
        to = from;
    }
};

/// \brief A plain structure behind a shared pointer: the base of every record class.
///
/// A record always has a structure of its own; copies are deep, so a SetVal_ on one copy never
/// shows in another. Only GetDataPtr() shares the structure of its record. There is no move,
/// because a moved-from record would be left without a structure. A record may be used on any
/// thread, by one thread at a time.
///
/// \code
/// class CLIENT_EXPORT CColumnInfo : public Nim::Base::CRecord<ColumnInfo>
/// {
///     VANTOR_RECORD(CColumnInfo)
///     VANTOR_RECORD_FIELD(column_name)
/// };
/// VANTOR_RECORD_DEFINE(CColumnInfo); // in the .cpp
/// \endcode
template <class Structure, class Assignment = DeepAssignment> class CRecord
{
public:
    using StructureType = Structure; ///< The plain structure.

    /// \brief A structure of default values.
    CRecord() : data_ptr_(std::make_shared<Structure>()) {}
    /// \brief Copies \a structure.
    explicit CRecord(const Structure &structure) : data_ptr_(std::make_shared<Structure>(structure))
    {}
    /// Adopts \a structure and shares it with the caller; a null pointer becomes a fresh structure.
    explicit CRecord(std::shared_ptr<Structure> structure)
        : data_ptr_(structure ? std::move(structure) : std::make_shared<Structure>())
    {}
    /// \brief A copy with a structure of its own, whatever \a Assignment is.
    CRecord(const CRecord &other) : data_ptr_(std::make_shared<Structure>(*other.data_ptr_)) {}
    /// \brief Assigns by the policy \a Assignment.
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): the policy compares the structures
    CRecord &operator=(const CRecord &other)
    {
        Assignment::Assign(data_ptr_, other.data_ptr_);
        return *this;
    }
    virtual ~CRecord() = default;

    /// \brief The structure itself; never null. Changes through the pointer change this record, and
    /// the other way round.
    [[nodiscard]] std::shared_ptr<Structure> GetDataPtr() const { return data_ptr_; }

    /// \brief The structure for reading, valid while the record exists; for code that reads many
    /// fields a million times.
    [[nodiscard]] const Structure &Read() const { return *data_ptr_; }

    /// \brief Exchange the structures without copying; for code that sorts many records.
    void Swap(CRecord &other) noexcept { data_ptr_.swap(other.data_ptr_); }

protected:
    std::shared_ptr<Structure> data_ptr_; ///< Never null.
};

} // namespace Nim::Base

/// The constructors of a record class. Put it first in the class; public members follow.
/// VANTOR_RECORD_DEFINE defines the destructor, which ties the type information of the class to one
/// module.
#define VANTOR_RECORD(Class)                                                                       \
public:                                                                                            \
    using CRecord::CRecord;                                                                        \
    Class() = default;                                                                             \
    Class(const Class &other) = default;                                                           \
    Class &operator=(const Class &other) = default;                                                \
    ~Class() override;

/// Goes into the .cpp of a record class.
#define VANTOR_RECORD_DEFINE(Class) Class::~Class() = default

/// The accessors of one field, named after it. The getter returns a copy, also of a nested record.
#define VANTOR_RECORD_FIELD(field)                                                                 \
    [[nodiscard]] decltype(StructureType::field) GetVal_##field() const                            \
    {                                                                                              \
        return data_ptr_->field;                                                                   \
    }                                                                                              \
    void SetVal_##field(const decltype(StructureType::field) &value)                               \
    {                                                                                              \
        data_ptr_->field = value;                                                                  \
    }
