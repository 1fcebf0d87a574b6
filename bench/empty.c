/* An empty program behind the platform library: what no command can cost less than. */
int main(void) { return 0; }
