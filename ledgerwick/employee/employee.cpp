#include "ledgerwick/employee/employee.h"

#include <array>
#include <cstddef>
#include <initializer_list>
#include <string>

#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick {

void cEmployee::BusName(std::string_view value) {
    texts_.set(Text::BusName, value);
    SplitName();
}

// The employee takes what the host leaves in the parts, even when the split fails.
void cEmployee::SplitName() {
    constexpr std::array parts{Text::Title, Text::Forename1, Text::Forename2, Text::Surname,
                               Text::OtherForenames};
    std::array<std::string, parts.size()> split;
    const auto keep = [&] {
        for (std::size_t i = 0; i < parts.size(); ++i) texts_.set(parts[i], split[i]);
    };
    for (std::size_t i = 0; i < parts.size(); ++i) split[i] = texts_.get(parts[i]);
    try {
        DLLGlobal::g().C_customerFunctions().SplitContactName(
            BusName(), split[0], split[1], split[2], split[3], split[4], otherID_);
    } catch (...) {
        keep();
        throw;
    }
    keep();
}

namespace {

// `name`, one blank and the part. A name that ends in a blank gets no second one.
std::string withPart(std::string_view name, std::string_view part) {
    std::string longer(trimRight(name));
    longer += ' ';
    longer += part;
    return longer;
}

}  // namespace

std::string cEmployee::Name() const {
    const std::string forenames = withPart(Title() + ' ' + Forename1(), Forename2());
    return std::string(trim(withPart(forenames, Surname())));
}

std::string cEmployee::ShortName() const {
    return std::string(trim(withPart(Title() + ' ' + Forename1(), Surname())));
}

std::string cEmployee::Forenames() const {
    return std::string(trim(Forename1() + ' ' + Forename2() + ' ' + OtherForenames()));
}

// ---- address ------------------------------------------------------------------------------------

namespace {

// The lines that are not empty, in order, as an array from 1.
VariantArray filledLines(std::initializer_list<std::string> lines) {
    VariantArray filled(1, 0);
    for (const std::string& line : lines) {
        if (line.empty()) continue;
        filled.resizeLast(filled.upperBound() + 1);
        filled.at(filled.upperBound()) = line;
    }
    return filled;
}

// The first of the two neighbouring lines that are shortest together; among equals the uppermost.
std::int32_t shortestPair(const VariantArray& lines) {
    std::int32_t shortest = 1;
    std::size_t shortestLength = SIZE_MAX;
    for (std::int32_t i = 1; i < lines.upperBound(); ++i) {
        const std::size_t length =
            characterCount(lines.at(i).textView()) + characterCount(lines.at(i + 1).textView());
        if (length >= shortestLength) continue;
        shortest = i;
        shortestLength = length;
    }
    return shortest;
}

void joinShortestPair(VariantArray& lines) {
    const std::int32_t pair = shortestPair(lines);
    lines.at(pair) = lines.at(pair).toText() + ", " + lines.at(pair + 1).toText();
    lines.at(pair + 1) = "";
    DLLGlobal::pf().DeleteFromArray(lines, "");
}

}  // namespace

Variant cEmployee::Address(std::int32_t lPieces) {
    if (lPieces < 3) raise(error_number::subscriptOutOfRange, "cEmployee.Address");
    VariantArray address(1, lPieces);
    address.at(lPieces) = Country();
    address.at(lPieces - 1) = PostCode();

    VariantArray lines = filledLines({Add1(), Add2(), Village(), Town(), County()});
    while (lines.upperBound() > lPieces - 2) joinShortestPair(lines);
    for (std::int32_t i = 1; i <= lines.upperBound(); ++i) address.at(i) = lines.at(i);
    return address;
}

// ---- workplace pension --------------------------------------------------------------------------

FieldList cEmployee::workplacePensionFields() noexcept {
    static constexpr std::array fields{
        field::PSID,
        field::PSDefEE,
        field::PSDefER,
        field::PREPenWorkplaceSchemeID,
        field::PREPenWorkplaceUseSchemeRates,
        field::PREPenWorkplaceEEDeductPerC,
        field::PREPenWorkplaceERDeductPerC,
        field::PREPenWorkplaceEEDeductFlat,
        field::PREPenWorkplaceERDeductFlat,
    };
    return fields;
}

void cEmployee::UpdateWorkplacePensionDetails(Recordset& rsEmp) {
    PenWorkplaceSchemeID(rsEmp.IsNull(field::PSID) ? 0 : rsEmp.GetInt32(field::PSID));
    if (rsEmp.IsNull(field::PREPenWorkplaceSchemeID) ||
        rsEmp.GetInt32(field::PREPenWorkplaceSchemeID) == 0) {
        return;
    }

    PenWorkplaceUseSchemeRates(rsEmp.GetBoolean(field::PREPenWorkplaceUseSchemeRates));
    if (PenWorkplaceUseSchemeRates()) {
        PenWorkplaceEEDeductPC(rsEmp.GetSingle(field::PSDefEE));
        PenWorkplaceERDeductPC(rsEmp.GetSingle(field::PSDefER));
        PenWorkplaceEEDeductFlat({});
        PenWorkplaceERDeductFlat({});
    } else {
        PenWorkplaceEEDeductPC(rsEmp.GetSingle(field::PREPenWorkplaceEEDeductPerC));
        PenWorkplaceERDeductPC(rsEmp.GetSingle(field::PREPenWorkplaceERDeductPerC));
        PenWorkplaceEEDeductFlat(rsEmp.GetCurrency(field::PREPenWorkplaceEEDeductFlat));
        PenWorkplaceERDeductFlat(rsEmp.GetCurrency(field::PREPenWorkplaceERDeductFlat));
    }
}

}  // namespace ledgerwick
