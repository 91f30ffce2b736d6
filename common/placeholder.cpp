// replaced by the module's sources
