// The text of schema.sql, built into the library.
#pragma once

namespace ledgerwick::sqlite {

extern const char* const schemaSql;

}  // namespace ledgerwick::sqlite
