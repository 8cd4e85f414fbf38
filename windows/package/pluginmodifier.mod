+ MAYAVERSION:2020 PLATFORM:win64 pluginmodifier @VERSION@ ./pluginmodifier
PYTHONPATH +:= python
