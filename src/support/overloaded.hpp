// Visits a variant with one function for each alternative.
#pragma once

namespace quillonic {

template <class... Visitors> struct Overloaded : Visitors... { using Visitors::operator()...; };
template <class... Visitors> Overloaded(Visitors...) -> Overloaded<Visitors...>;

}  // namespace quillonic
