/// What the library and its hosts are compiled with: g++ 12 or later, or clang 14 or later with libstdc++ 12
/// or later, as C++20, with exceptions and with run-time type information. Anything else is refused here, in
/// one sentence rather than in pages of errors from inside other headers.
#pragma once

#include <version>

#if !defined(__GNUC__) || (defined(__clang__) ? __clang_major__ < 14 : __GNUC__ < 12)
#error "Quillonic needs g++ 12 or later, or clang 14 or later."
#define QUILLONIC_DETAIL_REFUSED
#elif !defined(_GLIBCXX_RELEASE) || _GLIBCXX_RELEASE < 12
#error "Quillonic needs libstdc++ 12 or later as the standard library; with clang, -stdlib=libstdc++."
#define QUILLONIC_DETAIL_REFUSED
#elif __cplusplus < 202002L
#error "Quillonic needs C++20: compile with -std=c++20."
#define QUILLONIC_DETAIL_REFUSED
#elif !defined(__cpp_exceptions)
#error "Quillonic needs exceptions: compile without -fno-exceptions."
#define QUILLONIC_DETAIL_REFUSED
#elif !defined(__cpp_rtti)
#error "Quillonic needs run-time type information: compile without -fno-rtti."
#define QUILLONIC_DETAIL_REFUSED
#endif

#ifdef QUILLONIC_DETAIL_REFUSED
// A compiler goes on after #error, but not after a header that does not exist.
#include <quillonic/see_the_error_above>
#endif
