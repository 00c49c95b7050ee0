geen script
