#pragma once

#include <dbents.h>
#include <zuhost/names.h>

/// Names of entities by value. Reading a drawing's elements asks for two names per element, which the
/// embedded host gives without opening other objects. bare/entity_names.h needs the interface only.
namespace zu {

using zuhost::blockName;
using zuhost::layerName;

} // namespace zu
