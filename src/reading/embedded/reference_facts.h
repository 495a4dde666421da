#pragma once

#include <zuhost/reference_facts.h>

/// Block and place of a reference read at once. bare/reference_facts.h needs the interface only.
namespace zu {

using zuhost::readFacts;
using zuhost::ReferenceFacts;

} // namespace zu
