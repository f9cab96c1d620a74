#include "ledgerwick/orders/order_line.h"

#include "ledgerwick/values/text.h"

namespace ledgerwick {

namespace {

std::string between(char before, std::string_view text, char after) {
    std::string whole(1, before);
    whole += text;
    whole += after;
    return whole;
}

}  // namespace

// "Apples (kg)" and "Apples kg" both become "Apples" when the unit is "kg". No blank stays where the
// unit was.
void CImportedEarnings::Desc(std::string_view sDesc) {
    const std::string unitInBrackets = between('(', UoPCode(), ')');
    const std::string unitAsWord = between(' ', UoPCode(), ' ');

    const std::string withoutBrackets = replaceAll(sDesc, unitInBrackets, "");
    const std::string padded = between(' ', trim(withoutBrackets), ' ');
    desc_ = trim(replaceAll(padded, unitAsWord, ""));
}

}  // namespace ledgerwick
