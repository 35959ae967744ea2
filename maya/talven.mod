+ MAYAVERSION:2023 PLATFORM:linux talven 5.10.0 .
plug-ins: plug-ins
scripts: scripts
