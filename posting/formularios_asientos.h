#pragma once

// Registers the forms of posting (the entry form) by their menu names.
void registrarFormulariosAsientos();
