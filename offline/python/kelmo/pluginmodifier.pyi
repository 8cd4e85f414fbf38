# What editors show for kelmo.pluginmodifier. All arguments are positional; names may be str or unicode (UTF-8).
# The functions are explained in docs/reference.md, the pairs of type code and value in docs/values.md.
from typing import Any, List, Optional, Text, Tuple

def _init() -> None:
    """Must be called manually before using the module."""

def _uninit() -> None:
    """Must be called manually after using the module."""

def _delete(__pluginName: Text) -> None:
    """Delete a plugin with the given name."""

def _create(__typeName: Text, __pluginName: Text) -> Optional[str]:
    """Create a plugin with the given type and name."""

def _setParam(__pluginName: Text, __paramName: Text, __value: Tuple[int, Any]) -> None:
    """Set the value of a plugin parameter."""

def _getParam(__pluginName: Text, __paramName: Text) -> Optional[Tuple[int, Any]]:
    """Return the value of a plugin parameter."""

def _getPluginParams(__pluginName: Text, __existing: int) -> List[str]:
    """Return a python list containing the names of all parameters for the given plugin."""

def _getTypeParams(__typeName: Text) -> Optional[List[str]]:
    """Return a python list containing the names of all parameters for the given plugin type."""

def _getPluginType(__pluginName: Text) -> str:
    """Return the type of the plugin with the given name."""

def _getParamType(__pluginName: Text, __paramName: Text) -> Tuple[int, bool]:
    """Return the type of the plugin parameter."""

def _isOutputParam(__pluginName: Text, __paramName: Text) -> bool:
    """Return true if the plugin parameter is an output parameter."""

def _pluginExists(__pluginName: Text) -> bool:
    """Return true if a plugin with the given name exists."""

def _paramExists(__pluginName: Text, __paramName: Text) -> bool:
    """Return true if a parameter with the given name exists for this plugin."""

def _findByType(__pattern: Text) -> List[str]:
    """Find all plugins with type matching a string(including wild cards)."""

def _findByName(__pattern: Text) -> List[str]:
    """Find all plugins with name matching a string(including wild cards)."""

def _exportTexture(__nodeName: Text) -> Optional[str]:
    """Export a texture node."""

def _exportMaterial(__nodeName: Text) -> Optional[str]:
    """Export a material node."""

def _exportCamera(__nodeName: Text) -> Optional[str]:
    """Export a camera node."""

def _exportNode(__nodeName: Text) -> Optional[str]:
    """Export any node supported by kelmo."""

def _addSceneContent(__files: List[str], __text: Text) -> None:
    """Add the plugins from the given scene file."""

def _appendSceneContent(__files: List[str], __text: Text) -> None:
    """Append the plugins from the given scene file."""

def _duplicate(__pluginName: Text, __newName: Text) -> Optional[str]:
    """Create an exact copy of a Kelmo plugin."""

def _unique(__pluginName: Text) -> bool:
    """Check whether only one instance of this plugin type can exist."""
