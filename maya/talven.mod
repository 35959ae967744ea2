+ talven 5.10.0 .
plug-ins: plug-ins
