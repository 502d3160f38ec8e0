// Nothing of its own: the target that holds it compiles what every test includes.
