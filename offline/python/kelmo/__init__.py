"""The package that scripts import the scene access module from: kelmo.pluginmodifier."""
