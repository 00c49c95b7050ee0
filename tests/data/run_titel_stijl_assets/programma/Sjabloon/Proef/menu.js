function menu() {}
