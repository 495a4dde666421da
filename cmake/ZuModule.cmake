# Helpers for building modules of the host.
