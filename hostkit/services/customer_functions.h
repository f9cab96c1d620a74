// Splitting a name written as one line into its parts.
//
//   SplitContactName("Dr Mary Ann van der Berg", ...)
//       title "Dr", forename 1 "Mary", forename 2 "Ann", surname "van der Berg"
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "hostkit/export.h"
#include "ledgerwick/host/host.h"

namespace ledgerwick {

// The parts of a person's name. A part that the name does not have is empty.
struct NameParts {
    std::string title;           // "Mr", "Prof Dr", "Mr & Mrs"
    std::string forename1;       // the first forename or initial
    std::string forename2;       // the second
    std::string surname;         // with its particles and "Jr", "Snr" or "III": "de Souza Jr"
    std::string otherForenames;  // all further ones, with one blank between them
};

// Splits a name as people write it: titles in front, then forenames, then the surname, or
// "Surname, Title Forenames". Spelling and case of every part stay as they are written, apart from
// blanks.
// Shape:  a single word is a surname. A surname begins at the first of the particles in front of
//         its last word (van, der, de, la, St, Mac ...); one that is also a forename (Ben, Al, Mac)
//         counts as a particle only after another forename, unless it is written small. Degrees
//         and honours at the end (MBE, PhD) and "Esq" belong to no part.
LEDGERWICK_HOSTKIT_API NameParts splitName(std::string_view name);

// The kit's customer functions.
class LEDGERWICK_HOSTKIT_API KitCustomerFunctions : public CustomerFunctions {
  public:
    // Splits the name by `splitName`. `OtherID` is set to 0: a name carries no identifier, and a
    // host that has one (a passport or visa number, say) derives from this class.
    void SplitContactName(const std::string& BusName, std::string& Title, std::string& Forename1,
                          std::string& Forename2, std::string& Surname, std::string& OtherForenames,
                          std::int32_t& OtherID) override;
};

}  // namespace ledgerwick
