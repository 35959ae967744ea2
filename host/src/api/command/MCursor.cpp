#include <maya/MCursor.h>

const MCursor MCursor::defaultCursor(0);
const MCursor MCursor::crosshairCursor(1);
const MCursor MCursor::doubleCrosshairCursor(2);
const MCursor MCursor::editCursor(3);
const MCursor MCursor::pencilCursor(4);
const MCursor MCursor::handCursor(5);
