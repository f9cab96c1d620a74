// The common base of everything that a host can hold by reference, or hand over as an object.
#pragma once

#include <memory>
#include <string_view>

#include "ledgerwick/export.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick {

// An object that may travel in a Variant or through `Identify`. Held by std::shared_ptr; a null
// pointer is the empty reference.
class LEDGERWICK_API Object {
  public:
    virtual ~Object();

    // The name of the object's class, as a host would write it: "CEmployeeList", "Label".
    virtual std::string_view TypeName() const noexcept = 0;

  protected:
    // For the classes derived from it.
    Object() = default;
    // Copied only as a part of a class derived from it.
    Object(const Object&) = default;
    // Assigned only as a part of a class derived from it.
    Object& operator=(const Object&) = default;
};

using ObjectRef = std::shared_ptr<Object>;  // a reference that may be empty

// The object of a reference, for its use.
// Errors: 91, with `source`, for an empty reference.
template <class T>
T& used(const std::shared_ptr<T>& reference, std::string_view source) {
    if (!reference) raise(error_number::objectNotSet, source);
    return *reference;
}

}  // namespace ledgerwick
