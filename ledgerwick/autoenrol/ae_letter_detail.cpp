#include "ledgerwick/autoenrol/ae_letter_detail.h"

#include <filesystem>
#include <fstream>

#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/values/error.h"
#include "ledgerwick/values/format.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick {
namespace {

constexpr std::string_view templateFolder = "AE Letter Templates";

// ---- files --------------------------------------------------------------------------------------

std::filesystem::path pathOf(std::string_view utf8) {
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string textOf(const std::filesystem::path& path) {
    const std::u8string utf8 = path.u8string();
    return {utf8.begin(), utf8.end()};
}

std::filesystem::path programFolder() {
    return pathOf(DLLGlobal::CallerGlobal().App().Path());
}

std::string defaultSignatureFile() {
    return textOf(programFolder() / "Graphics" / "Signature.gif");
}

bool fileExists(const std::filesystem::path& path) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(path, ignored);
}

// The template in its own folder, else in the program folder, else an empty path.
std::filesystem::path findTemplate(const std::string& fileName) {
    const std::filesystem::path program = programFolder();
    for (const auto& folder : {program / templateFolder, program}) {
        auto path = folder / pathOf(fileName);
        if (fileExists(path)) return path;
    }
    return {};
}

std::string readTemplate(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::string bytes;
    char part[4096];
    while (file.read(part, sizeof part) || file.gcount() > 0) {
        bytes.append(part, static_cast<std::size_t>(file.gcount()));
    }
    if (!file.eof()) raise(error_number::fileError, "LetterText", textOf(path));
    return windows1252ToUtf8(bytes);
}

}  // namespace

CAELetterDetail::CAELetterDetail() {
    if (DLLGlobal::references().CallerGlobal) signatureFile_ = defaultSignatureFile();
}

// ---- values that the template shows -------------------------------------------------------------

void CAELetterDetail::EmployeeForename(std::string value) {
    fill(LetterValue::EmployeeForename, value);
    employeeForename_ = std::move(value);
}

void CAELetterDetail::AETriggerGBP_M(Currency value) {
    aeTriggerMonth_ = value;
    fill(LetterValue::AETriggerGBP_M, value);
}

void CAELetterDetail::AETriggerGBP_A(Currency value) {
    aeTriggerYear_ = value;
    fill(LetterValue::AETriggerGBP_A, value);
}

void CAELetterDetail::AETriggerGBP_W(Currency value) {
    aeTriggerWeek_ = value;
    fill(LetterValue::AETriggerGBP_W, value);
}

void CAELetterDetail::AEMinContribPct(float value) {
    aeMinContribPct_ = value;
    fill(LetterValue::AEMinContribPct, double{value});
}

void CAELetterDetail::AEMinEmployerContribPct(float value) {
    aeMinEmployerContribPct_ = value;
    fill(LetterValue::AEMinEmployerContribPct, double{value});
}

void CAELetterDetail::AEMinEmployeeContribPct(float value) {
    aeMinEmployeeContribPct_ = value;
    fill(LetterValue::AEMinEmployeeContribPct, double{value});
}

void CAELetterDetail::PensionProvider(std::string value) {
    fill(LetterValue::PensionProvider, value);
    pensionProvider_ = std::move(value);
}

void CAELetterDetail::LELGBP_M(Currency value) {
    lelMonth_ = value;
    fill(LetterValue::LELGBP_M, value);
}

void CAELetterDetail::LELGBP_W(Currency value) {
    lelWeek_ = value;
    fill(LetterValue::LELGBP_W, value);
}

void CAELetterDetail::AETriggerAge(std::int16_t value) {
    aeTriggerAge_ = value;
    fill(LetterValue::AETriggerAge, static_cast<double>(value));
}

void CAELetterDetail::PayDateFull(Date value) {
    payDateFull_ = value;
    fill(LetterValue::PayDateFull, value);
}

Date CAELetterDetail::LetterDate() const {
    return letterDate_.isSet() ? letterDate_ : DLLGlobal::g().g_dtmToday();
}

void CAELetterDetail::AEPostponementEndDate(Date value) {
    aePostponementEndDate_ = value;
    fill(LetterValue::AEPostponementEndDate, value);
}

std::string CAELetterDetail::SignatureFile() const {
    if (!signatureFile_) signatureFile_ = defaultSignatureFile();
    return *signatureFile_;
}

// ---- placeholders -------------------------------------------------------------------------------

void CAELetterDetail::fill(LetterValue which, std::string text) {
    const std::string key(placeholderOf(which).text);
    if (!placeholders_.Exists(key)) placeholders_.Add(key, std::move(text));
}

void CAELetterDetail::fill(LetterValue which, Currency value) {
    fill(which, formatNumber(value, placeholderOf(which).picture));
}

void CAELetterDetail::fill(LetterValue which, double value) {
    fill(which, formatNumber(value, placeholderOf(which).picture));
}

void CAELetterDetail::fill(LetterValue which, Date value) {
    fill(which, formatDate(value, placeholderOf(which).picture));
}

// ---- texts --------------------------------------------------------------------------------------

void CAELetterDetail::AddAddressLine(const std::string& sLine) {
    addressLines_.push_back(sLine);
}

std::string CAELetterDetail::EmployeeAddress() const {
    std::string address;
    for (const std::string& line : addressLines_) {
        if (!address.empty()) address += "\r\n";
        address += line;
    }
    return address;
}

std::string CAELetterDetail::LetterTypeText() const {
    switch (LetterType()) {
        case PR_AELT_ENROLMENT:
            return "Enrolment";
        case PR_AELT_POSTPONEMENT:
            return "Postponement";
        case PR_AELT_NOT_ELIGIBLE:
            return "Non-Qualifying";
        case PR_AELT_RE_ENROLMENT:
            return "Re-Enrolment";
        case PR_AELT_ENROLMENT_ATTACH:
            return "Enrolment Attachment";
        case PR_AELT_NONE:
            break;
    }
    return "*** No Letter Type Set ***";
}

std::string CAELetterDetail::LetterHeadingText() const {
    const std::string& scheme = EmployerSchemeName();
    return scheme.empty() ? LetterTypeText() : scheme + " - " + LetterTypeText();
}

std::string CAELetterDetail::LetterText() const {
    DLLGlobal::fp().checkBackupDir(templateFolder);
    const std::filesystem::path path = findTemplate(LetterTypeText() + ".txt");
    if (path.empty()) return {};

    std::string text = readTemplate(path);
    for (const auto& [placeholder, value] : placeholders_) {
        text = replaceAll(text, placeholder, value);
    }
    ApplyPreYearBlock(text);
    text = replaceAll(text, "\u2019", "'");
    return replaceAll(text, "\u2018", "'");
}

// Keeps or deletes the first block "$PreAA_BBText$[...]" of the text. The block ends at the first
// "]". A block without "[" or "]" leaves the text unchanged. Further tags stay.
void CAELetterDetail::ApplyPreYearBlock(std::string& text) const {
    const auto block = findYearBlock(text);
    if (!block || !block->isSound()) return;
    const std::string tag = text.substr(block->begin, yearTagPattern.size());

    if (PayrollYear() >= block->beforeYear) {
        text = replaceAll(text, text.substr(block->begin, block->end + 1 - block->begin), "");
    } else {
        text.erase(block->end, 1);
        text = replaceAll(text, tag + "[", "");
    }
}

}  // namespace ledgerwick
