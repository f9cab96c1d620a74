// The companies of a server's database: its schemas that hold the kit's tables.
#pragma once

#include <string>
#include <vector>

#include "hostkit/postgres/target.h"

namespace ledgerwick::postgres {

// Whether there is a schema of the company's name.
bool companyExists(const Target& target);
// Makes the company's schema, and what all companies of a database share.
// Errors: 5 when the database sorts texts otherwise than the library does.
void createCompany(const Target& target);
// Removes the company with everything in it.
void dropCompany(const Target& target);
// The names of all companies of a database, in their order.
std::vector<std::string> companiesIn(const Target& target);

}  // namespace ledgerwick::postgres
