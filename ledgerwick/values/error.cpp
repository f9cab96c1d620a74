#include "ledgerwick/values/error.h"

#include <utility>

namespace ledgerwick {
namespace {

struct Description {
    std::int32_t number;
    std::string_view text;
};

constexpr Description descriptions[] = {
    {error_number::invalidCall, "Invalid call or argument"},
    {error_number::overflow, "Overflow"},
    {error_number::subscriptOutOfRange, "Subscript out of range"},
    {error_number::divisionByZero, "Division by zero"},
    {error_number::typeMismatch, "Type mismatch"},
    {error_number::fileNotFound, "File not found"},
    {error_number::fileError, "File error"},
    {error_number::fileExists, "File already exists"},
    {error_number::objectNotSet, "Object not set"},
    {error_number::invalidUseOfNull, "Invalid use of Null"},
    {error_number::cannotCreateObject, "Cannot create object"},
    {error_number::noSuchMember, "Object has no such member"},
    {error_number::duplicateKey, "Key already present"},
    {error_number::updateWithoutEdit, "Update without AddNew or Edit"},
    {error_number::noCurrentRecord, "No current record"},
    {error_number::diskFull, "Disk full"},
    {error_number::readOnly, "Read only"},
    {error_number::damagedFile, "Damaged file"},
    {error_number::statementError, "Error in statement"},
    {error_number::noSuchTable, "No such table"},
    {error_number::databaseError, "Database error"},
    {error_number::connectionLost, "Connection to the database lost"},
    {error_number::listOutdated, "Somebody else has changed this since it was loaded"},
    {error_number::writerBusy, "Somebody else is writing, try again"},
    {error_number::noSuchItem, "No such item"},
    {error_number::wrongVersion, "Unrecognized database format"},
    {error_number::notACompany, "Not a company"},
    {error_number::objectClosed, "Object is closed"},
};

std::string_view descriptionOf(std::int32_t number) noexcept {
    for (const auto& entry : descriptions) {
        if (entry.number == number) return entry.text;
    }
    return "Error of the application";
}

}  // namespace

Error::Error(std::int32_t number, std::string source, std::string description)
    : number_(number), source_(std::move(source)), description_(std::move(description)) {
    text_ = "Error " + std::to_string(number_) + " in " + source_ + ": " + description_;
}

Error::~Error() = default;

void raise(std::int32_t number, std::string_view source, std::string_view detail) {
    std::string description(descriptionOf(number));
    if (!detail.empty()) description.append(": ").append(detail);
    throw Error(number, std::string(source), std::move(description));
}

}  // namespace ledgerwick
