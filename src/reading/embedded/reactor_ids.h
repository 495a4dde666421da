#pragma once

#include <zuhost/reactor_ids.h>

/// Persistent reactors read in place: AcDbObject::reactors keeps a list with the object. bare/reactor_ids.h
/// needs the interface only.
namespace zu {

using zuhost::readPersistentReactors;

} // namespace zu
