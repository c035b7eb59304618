/* Something to load. */
int hollow_module;
