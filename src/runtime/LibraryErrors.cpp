// What the C++ library raises when it is used wrongly or asked for too much, and what it does when it can go no further.
// Its own functions for this write messages that nobody sees; they bring a fifth of the product's size along, and code
// that loads a library by its bare name.
#include <exception>
#include <new>

#include "base/RunTimeError.h"
#include "runtime/FastFail.h"

namespace std {

void __throw_bad_alloc() { throw bad_alloc(); }
void __throw_bad_array_new_length() { throw bad_array_new_length(); }
void __throw_length_error(const char*) { vantik::Raise(vantik::RunTimeErrorNumber::InternalError); }
void __throw_logic_error(const char*) { vantik::Raise(vantik::RunTimeErrorNumber::InternalError); }
void __throw_out_of_range_fmt(const char*, ...) { vantik::Raise(vantik::RunTimeErrorNumber::InternalError); }

} // namespace std

void __gnu_cxx::__verbose_terminate_handler() { vantik::FailFast(vantik::Failure::FatalError); }
