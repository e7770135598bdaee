#pragma once

/// True once a command of the manager, or an edit in its table, has changed one of its working
/// copies. Shared by the manager's files, so one manager at a time is assumed; its destructor
/// resets this to false.
extern bool dataModified;
