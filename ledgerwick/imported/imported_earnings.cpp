#include "ledgerwick/imported/imported_earnings.h"

#include "ledgerwick/values/text.h"

namespace ledgerwick {

// "Apples (kg)" and "Apples kg" are both Apples when bought by the kg. What is taken out leaves no
// blank behind.
void CImportedEarnings::Desc(std::string_view sDesc) {
    const std::string inBrackets = "(" + UoPCode() + ")";
    const std::string asWord = " " + UoPCode() + " ";

    const std::string withoutBrackets = replaceAll(sDesc, inBrackets, "");
    const std::string padded = " " + std::string(trim(withoutBrackets)) + " ";
    desc_ = trim(replaceAll(padded, asWord, ""));
}

}  // namespace ledgerwick
