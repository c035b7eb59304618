/* What a plug-in is not to have: an import that nobody is asked for. */
void kelmora_nowhere(void);

__attribute__((used)) static void call(void) { kelmora_nowhere(); }
