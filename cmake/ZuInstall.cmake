# What `cmake --install` puts in place.
