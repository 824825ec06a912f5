#pragma once

// Registers the report forms under the names the menu opens them by.
void registrarFormulariosInformes();
